// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/Target.h"

#include "fuzz/targets/Targets.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace sm::fuzz {

std::span<const Target> Targets()
{
    static constexpr std::array kTargets{
        Target{"dwg", FuzzDwg, 6000, DwgSeeds, Changes::Bytes, DwgKind},
        Target{"dxf", FuzzDxf, 3000, DxfSeeds, Changes::Tags},
        Target{"binary-dxf", FuzzBinaryDxf, 3000, BinaryDxfSeeds, Changes::Tags},
        Target{"records", FuzzRecords, 1500, RecordSeeds, Changes::Tags},
        Target{"sidecar", FuzzSidecar, 600, SidecarSeeds, Changes::Lines},
        Target{"plotstyles", FuzzPlotStyles, 1000, PlotStyleSeeds, Changes::Lines},
        Target{"pc3", FuzzPc3, 400, Pc3Seeds, Changes::Lines},
        Target{"shx", FuzzShx, 300, ShxSeeds},
        Target{"strokes", FuzzStrokes, 300, StrokeSeeds, Changes::Lines},
        Target{"fontmap", FuzzFontMap, 300, FontMapSeeds, Changes::Lines},
        Target{"sfnt", FuzzSfnt, 600, SfntSeeds},
        Target{"subset", FuzzSubset, 200, SubsetSeeds},
        Target{"pictures", FuzzPictures, 500, PictureSeeds},
        Target{"metafiles", FuzzMetafiles, 1000, MetafileSeeds},
        Target{"joboptions", FuzzJobOptions, 300, JobOptionsSeeds, Changes::Lines},
        Target{"dialect", FuzzDialect, 600, DialectSeeds, Changes::Lines},
        Target{"settings", FuzzSettings, 4096, SettingsSeeds},
        Target{"paths", FuzzPaths, 120, PathSeeds},
        Target{"hyperlinks", FuzzHyperlinks, 600, HyperlinkSeeds, Changes::Tags},
        Target{"road", FuzzRoad, 2500, RoadSeeds, Changes::Tags},
    };
    return kTargets;
}

const Target* FindTarget(std::string_view name)
{
    const auto all = Targets();
    const auto found = std::ranges::find_if(all, [&](const Target& target) { return name == target.name; });
    return found == all.end() ? nullptr : &*found;
}

void Fail(const char* what)
{
    std::fprintf(stderr, "what must hold doesn't: %s\n", what);
    std::abort();
}

void CheckReason(std::string_view text, std::string_view begins)
{
    if (text.empty() || text.find('\n') != std::string_view::npos)
        Fail("a refusal is one line");
    if (!text.starts_with(begins))
        Fail("a refusal names its file first");
}

} // namespace sm::fuzz
