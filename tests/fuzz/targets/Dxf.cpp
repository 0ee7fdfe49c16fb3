// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of DXF, as text and binary, and all that a drawing decodes when it is asked.
#include "drawing/BinaryDxf.h"
#include "drawing/Drawing.h"
#include "fuzz/Target.h"
#include "fuzz/WalkDrawing.h"
#include "fuzz/targets/SmallDrawings.h"
#include "fuzz/targets/Targets.h"

#include <cstdlib>

namespace sm::fuzz {

namespace {

void OpenAndWalk(std::string bytes)
{
    try {
        const auto drawing = drawing::Drawing::FromBytes(std::move(bytes), "plan.dxf");
        (void)drawing::testing::Walk(*drawing);
        if (drawing->Layouts().size() < 2 || !drawing->Layouts()[0].isModel ||
            drawing->ActiveLayout() >= drawing->Layouts().size())
            Fail("a drawing has a model and a paper layout, one of all is active");
    } catch (const drawing::DrawingError& error) {
        CheckReason(error.what(), "plan.dxf: ");
    }
}

std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

void AppendValue(std::string& bytes, int code, const std::string& value)
{
    using drawing::testing::AppendBytes;
    const drawing::testing::BinaryWidth width = drawing::testing::WidthOf(code);
    if (width.real) {
        const double number = std::strtod(value.c_str(), nullptr);
        AppendBytes(bytes, &number, 8);
    } else if (width.width > 0) {
        const long long number = std::strtoll(value.c_str(), nullptr, 10);
        AppendBytes(bytes, &number, width.width);
    } else if (width.width == 0) {
        bytes += value + '\0';
    } else {
        constexpr std::size_t kLongestChunk = 254;
        const std::size_t digits = std::min(value.size() / 2, kLongestChunk) * 2;
        bytes.push_back(static_cast<char>(digits / 2));
        for (std::size_t at = 0; at < digits; at += 2)
            bytes.push_back(static_cast<char>(std::strtol(value.substr(at, 2).c_str(), nullptr, 16)));
    }
}

/// Pairs of lines in binary form, whatever they hold; `wide`: group codes of two bytes.
std::string BinaryOf(std::string_view text, bool wide)
{
    std::string bytes("AutoCAD Binary DXF\r\n\x1a\0", 22);
    while (!text.empty()) {
        const int code = std::atoi(std::string(TakeLine(text)).c_str());
        const auto narrow = static_cast<short>(code);
        if (!wide && code >= 0 && code < 255) {
            bytes.push_back(static_cast<char>(code));
        } else {
            bytes += wide ? "" : "\xFF";
            drawing::testing::AppendBytes(bytes, &narrow, 2);
        }
        AppendValue(bytes, code, std::string(TakeLine(text)));
    }
    return bytes;
}

} // namespace

void FuzzDxf(std::string_view input)
{
    OpenAndWalk(std::string(input));
}

/// Text is turned into binary form first, so that what is changed are values: with wide group codes when its length is
/// even. What begins as binary files do is taken as it is.
void FuzzBinaryDxf(std::string_view input)
{
    OpenAndWalk(input.starts_with("AutoCAD Binary") ? std::string(input) : BinaryOf(input, input.size() % 2 == 0));
}

Inputs DxfSeeds()
{
    return SmallDrawings();
}

Inputs BinaryDxfSeeds()
{
    Inputs seeds = SmallDrawings();
    const Inputs texts = seeds;
    for (std::size_t i = 0; i < texts.size(); i += 4)
        for (const bool wide : {false, true})
            seeds.push_back(BinaryOf(texts[i], wide));
    return seeds;
}

} // namespace sm::fuzz
