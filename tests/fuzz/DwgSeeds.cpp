// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/DwgFiles.h"
#include "fuzz/BuiltFile.h"
#include "fuzz/FuzzDwg.h"
#include "fuzz/OldSeeds.h"
#include "fuzz/targets/Targets.h"

namespace sm::drawing::dwg::testing {

std::vector<std::pair<std::string, std::string>> OwnInputs()
{
    std::vector<std::pair<std::string, std::string>> inputs{
        {"own-sections", FileOf2000({20, 300, 50}, 1).bytes},
        {"own-pages-2018", PagesOf(SectionsOf(LinesOf2018({20, 300, 50}), true)).bytes},
        {"own-pages-2004", PagesOf(SectionsOf(LinesOf2018({20, 300}), false), {"AC1018", 96}).bytes},
        {"own-coded", CodedFileOf(SectionsOf(LinesOf2000({20, 300, 50}, 0), false))}};
    for (const auto& [name, file] : OldSeeds())
        inputs.emplace_back("own-" + name, file);
    const std::string letters = "abcdefghijklmnopqrstuvwxyz";
    inputs.emplace_back("own-compressed-2004", std::string(1, '\0') + Le16(26) + Literal2004(letters));
    inputs.emplace_back("own-compressed-2007", std::string(1, '\1') + Le16(64) + '\x12' + letters + letters);
    for (unsigned release = 0; release < kReleases; ++release)
        for (const unsigned type : {1U, 7U, 19U, 44U, 48U, 49U, 77U, 78U, 82U}) {
            const std::string framed = release < 5 ? Object2000(type, 0x20, 60) : Object2018(type, 0x20, 60);
            const std::string object = Le16(8) + framed.substr(release < 5 ? 2 : 3, 60);
            inputs.emplace_back("own-built-" + std::to_string(release) + "-" + std::to_string(type),
                                std::string{'\2', static_cast<char>(release)} + PartBytes(Part::Object, object));
        }
    return inputs;
}

} // namespace sm::drawing::dwg::testing

namespace sm::fuzz {

Inputs DwgSeeds()
{
    Inputs seeds;
    for (auto& [name, input] : drawing::dwg::testing::OwnInputs())
        seeds.push_back(std::move(input));
    return seeds;
}

} // namespace sm::fuzz
