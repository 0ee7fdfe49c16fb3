// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings that a CAD program saved as DWG and as DXF: both roads give the same. The folder is named by the
// environment variable SM_SHARED_DRAWINGS, or lies beside the source tree; without it these tests are skipped.
#include "drawing/Finding.h"
#include "drawing/SharedDrawings.h"
#include "drawing/dwg/Twins.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <map>

namespace sm::drawing::twins {

namespace {

namespace fs = std::filesystem;

/// The DXF beside a DWG; empty when there is none.
fs::path TwinOf(fs::path dwg)
{
    const fs::path plain = fs::path(dwg).replace_extension(".dxf");
    const fs::path ascii = dwg.parent_path() / (dwg.stem().string() + "_ascii.dxf");
    return fs::exists(plain) ? plain : fs::exists(ascii) ? ascii : fs::path();
}

/// One old DXF was saved with handles of its own: it can be compared by numbers alone.
bool IsRenumbered(const Pair& pair)
{
    const auto model = [](const Drawing& drawing) { return BlockHandle(drawing, drawing.FindBlock("*Model_Space")); };
    return model(pair.dwg) != model(pair.dxf);
}

std::map<std::string, std::size_t> CountKinds(const Drawing& drawing)
{
    std::map<std::string, std::size_t> kinds;
    for (const EntityRecord& record : drawing.EntitiesOf(drawing.FindBlock("*Model_Space")))
        ++kinds[std::string(drawing.EntityName(record))];
    return kinds;
}

void CompareCounts(const Pair& pair, Report& report, const std::string& name)
{
    const auto dwg = CountKinds(pair.dwg), dxf = CountKinds(pair.dxf);
    Fields fields(report, "COUNT", name);
    for (const auto& [kind, count] : dwg)
        fields.Is(kind, count, dxf.contains(kind) ? dxf.at(kind) : 0);
    fields.Is("LAYER", pair.dwg.Layers().size(), pair.dxf.Layers().size());
    fields.Is("LTYPE", pair.dwg.Linetypes().size(), pair.dxf.Linetypes().size());
    fields.Is("STYLE", pair.dwg.TextStyles().size(), pair.dxf.TextStyles().size());
    fields.Is("VIEW", pair.dwg.Views().size(), pair.dxf.Views().size());
}

void CompareTwins(const fs::path& dwg, Report& report)
{
    const auto first = Drawing::Open(dwg.string());
    const auto second = Drawing::Open(TwinOf(dwg).string());
    const Pair pair = MakePair(*first, *second);
    const std::string name = dwg.filename().string();
    if (IsRenumbered(pair)) {
        CompareCounts(pair, report, name);
        return;
    }
    CompareTables(pair, report, name);
    CompareBlocks(pair, report, name);
    for (const Finding& finding : first->Findings())
        report.Add("FINDING " + finding.text, name + " " + std::to_string(finding.count));
}

struct Reason {
    const char* field;
    const char* why;
};

constexpr const char* kOldProxies = "an R14 DXF has newer objects as proxies, a DWG as what they are";
constexpr const char* kExtents = "the program brings the extents up to date when it writes a DXF";
constexpr const char* kOldColors = "an R2000 DWG holds the nearest index of a multileader's true colour";
constexpr const char* kFitSplines = "a DXF has the control points that the program makes of fit points and tangents";
constexpr const char* kNewPicture = "the program made this anonymous block anew for the DXF";
constexpr const char* kUnseenSheets = "the sheet of a layout that was never opened has no number in a DXF";

/// A reason counts for the fields that begin with its own.
const char* ReasonFor(const std::string& field)
{
    static constexpr Reason kReasons[] = {
        {"ACAD_PROXY_ENTITY.name", kOldProxies},
        {"ACAD_TABLE.cell.block", kNewPicture},
        {"BLOCK.anonymous name", "the numbers of anonymous blocks are made up when a file is written"},
        {"COUNT.", kOldProxies},
        {"DRAWING.applications", "names that nothing refers to are left out of a DXF"},
        {"DRAWING.applications.size", "names that nothing refers to are left out of a DXF"},
        {"HEADER.$EXTMAX", kExtents},
        {"HEADER.$EXTMIN", kExtents},
        {"HEADER.$XCLIPFRAME", "a DXF up to R2007 knows 0 and 1 alone, a DWG 2 as well"},
        {"INSERT.block", kNewPicture},
        {"LAYOUT.", kOldProxies},
        {"LEADER.layer", "the two files were saved at different times, with another name of this layer"},
        {"LEADER.textWidth",
         "from R2010 on a DWG has no width of what the leader leads to; for tolerances none is made"},
        {"MULTILEADER.backgroundColor", kOldColors},
        {"MULTILEADER.backgroundTrueColor", kOldColors},
        {"SHAPE.name", "a DWG holds the number of a shape in its file, not its name"},
        {"SPLINE.controlPoints.size", kFitSplines},
        {"SPLINE.knots.size", kFitSplines},
        {"SPLINE.fitPoints.size", kFitSplines},
        {"SPLINE.startTangent", kFitSplines},
        {"SPLINE.endTangent", kFitSplines},
        {"VIEWPORT.isSheet", kUnseenSheets},
        {"VIEWPORT.shown", kUnseenSheets},
        {"VPORT.", "the view on the screen is that of the moment of saving"},
    };
    for (const Reason& reason : kReasons)
        if (field == reason.field || (std::string_view(reason.field).ends_with('.') && field.starts_with(reason.field)))
            return reason.why;
    return nullptr;
}

/// Why objects of a kind stand in one of the files alone.
const char* ReasonForLone(const std::string& kind)
{
    static constexpr Reason kReasons[] = {
        {"BLOCK",
         "the pictures of annotative objects are made anew for each file; an old file has one unused sheet more"},
        {"LAYER", "the layers of annotation scales are made anew for each file"},
        {"LAYOUT", kOldProxies},
    };
    for (const Reason& reason : kReasons)
        if (kind == reason.field)
            return reason.why;
    return nullptr;
}

void Print(const Report& report)
{
    for (const auto& [kind, count] : report.both) {
        const auto of = [&](const auto& list) { return list.contains(kind) ? list.at(kind) : 0; };
        std::cout << "  " << kind << ": both " << count << ", DWG alone " << of(report.onlyDwg) << ", DXF alone "
                  << of(report.onlyDxf) << '\n';
    }
    for (const auto& [kind, count] : report.onlyDwg)
        if (!report.both.contains(kind))
            std::cout << "  " << kind << ": DWG alone " << count << '\n';
    for (const auto& [kind, count] : report.onlyDxf)
        if (!report.both.contains(kind))
            std::cout << "  " << kind << ": DXF alone " << count << '\n';
}

TEST(Twins, AreTheSameOnBothRoads)
{
    if (!fs::exists((SharedDrawings() / "twins")))
        GTEST_SKIP() << "no shared drawings";
    Report report;
    int pairs = 0;
    for (const auto& entry : fs::recursive_directory_iterator((SharedDrawings() / "twins"))) {
        if (entry.path().extension() != ".dwg" || TwinOf(entry.path()).empty())
            continue;
        ++pairs;
        CompareTwins(entry.path(), report);
    }
    std::cout << pairs << " pairs\n";
    Print(report);
    for (const auto* list : {&report.onlyDwg, &report.onlyDxf})
        for (const auto& [kind, count] : *list)
            EXPECT_NE(ReasonForLone(kind), nullptr) << kind << " " << count;
    for (const auto& [field, row] : report.different) {
        const char* const why = ReasonFor(field);
        std::cout << "  " << field << ": " << row.count << " different; " << (why != nullptr ? why : "UNEXPLAINED")
                  << " (" << row.example << ")\n";
        EXPECT_NE(why, nullptr) << field << " " << row.example;
    }
}

} // namespace

} // namespace sm::drawing::twins
