// Drawings that a CAD program saved as DWG and as DXF: both roads give the same. The folder is named by the
// environment variable SM_SHARED_DRAWINGS, or lies beside the source tree; without it these tests are skipped.
#include "drawing/dwg/Twins.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>

namespace sm::drawing::twins {

namespace {

namespace fs = std::filesystem;

fs::path Folder()
{
    const char* const named = std::getenv("SM_SHARED_DRAWINGS");
    return (named != nullptr ? fs::path(named) : fs::path(SM_SOURCE_DIR) / ".." / "shared" / "drawings") / "twins";
}

/// The DXF beside a DWG; empty when there is none.
fs::path TwinOf(fs::path dwg)
{
    const fs::path plain = fs::path(dwg).replace_extension(".dxf");
    const fs::path ascii = dwg.parent_path() / (dwg.stem().string() + "_ascii.dxf");
    return fs::exists(plain) ? plain : fs::exists(ascii) ? ascii : fs::path();
}

void CompareTwins(const fs::path& dwg, Report& report)
{
    const auto first = Drawing::Open(dwg.string());
    const auto second = Drawing::Open(TwinOf(dwg).string());
    const Pair pair{*first, *second};
    const std::string name = dwg.filename().string();
    CompareTables(pair, report, name);
    CompareBlocks(pair, report, name);
    for (const Finding& finding : first->Findings())
        report.Add("FINDING " + finding.text, name + " " + std::to_string(finding.count));
}

struct Reason {
    const char* field;
    const char* why;
};

const char* ReasonFor(const std::string& field)
{
    static constexpr Reason kReasons[] = {
        {"LAYER.color beside true colour", "a DWG holds no index beside a layer's true colour"},
    };
    for (const Reason& reason : kReasons)
        if (field == reason.field)
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
    if (!fs::exists(Folder()))
        GTEST_SKIP() << "no shared drawings";
    Report report;
    int pairs = 0;
    for (const auto& entry : fs::recursive_directory_iterator(Folder())) {
        if (entry.path().extension() != ".dwg" || TwinOf(entry.path()).empty())
            continue;
        ++pairs;
        CompareTwins(entry.path(), report);
    }
    std::cout << pairs << " pairs\n";
    Print(report);
    for (const auto& [field, row] : report.different) {
        const char* const why = ReasonFor(field);
        std::cout << "  " << field << ": " << row.count << " different; " << (why != nullptr ? why : "UNEXPLAINED")
                  << " (" << row.example << ")\n";
        EXPECT_NE(why, nullptr) << field << " " << row.example;
    }
}

} // namespace

} // namespace sm::drawing::twins
