// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/FuzzDwg.h"

#include "drawing/Drawing.h"
#include "dwg/file/Decompress.h"
#include "dxf/DxfDrawing.h"
#include "fuzz/BuiltFile.h"
#include "fuzz/Target.h"
#include "fuzz/WalkDrawing.h"
#include "fuzz/targets/Targets.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace sm::drawing::dwg::testing {

namespace {

void Decompress(Mode mode, std::string_view bytes)
{
    if (bytes.size() < 2)
        return;
    std::vector<char> target(static_cast<unsigned char>(bytes[0]) |
                             static_cast<unsigned>(static_cast<unsigned char>(bytes[1])) << 8U);
    bytes.remove_prefix(2);
    const Decompressed done = mode == Mode::Pages2004 ? Decompress2004(bytes, target) : Decompress2007(bytes, target);
    if (done.written > target.size())
        std::abort();
}

/// An error is one line that names the file; anything else that is thrown ends the run.
void OpenFile(std::string bytes)
{
    if (bytes.empty())
        return;
    try {
        const auto drawing = OpenDwgBytes(std::move(bytes), "plan.dwg");
        (void)sm::drawing::testing::Walk(*drawing);
    } catch (const DrawingError& error) {
        if (std::strncmp(error.what(), "plan.dwg: ", 10) != 0 || std::strchr(error.what(), '\n') != nullptr)
            std::abort();
    }
}

Mode ModeOf(std::uint8_t byte)
{
    return static_cast<Mode>(byte % static_cast<unsigned>(Mode::Count));
}

} // namespace

} // namespace sm::drawing::dwg::testing

namespace sm::fuzz {

using namespace drawing::dwg::testing;

std::string DwgKind(std::string_view input)
{
    if (input.empty())
        return "empty";
    if (input[0] == kWholeFile) {
        const std::string magic(input.substr(0, 6));
        for (const char* known : {"AC1004", "AC1006", "AC1009"})
            if (magic == known)
                return "whole " + magic;
        for (const char* known : kMagics)
            if (magic == known)
                return "whole " + magic;
        return "whole, other";
    }
    switch (ModeOf(static_cast<std::uint8_t>(input[0]))) {
    case Mode::Pages2004:
        return "pages 2004";
    case Mode::Pages2007:
        return "pages 2007";
    default:
        return input.size() < 2 ? "empty"
                                : "built " + std::string(kMagics[static_cast<std::uint8_t>(input[1]) % kReleases]);
    }
}

void FuzzDwg(std::string_view input)
{
    if (input.empty())
        return;
    const Mode mode = ModeOf(static_cast<std::uint8_t>(input[0]));
    if (input[0] == kWholeFile)
        OpenFile(std::string(input));
    else if (mode != Mode::Built)
        Decompress(mode, input.substr(1));
    else if (input.size() > 1)
        OpenFile(FileOfParts(static_cast<std::uint8_t>(input[1]), input.substr(2)));
}

} // namespace sm::fuzz
