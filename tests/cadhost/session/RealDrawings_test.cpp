// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings from the field: every layout is listed, configured for the suite's plotter and put back, and no host call
// fails. The drawings lie outside of the tree; without them there is nothing to test.
#include "cadhost/HostFixture.h"
#include "drawing/DrawingError.h"
#include "drawing/SharedDrawings.h"

#include <algorithm>

namespace sm::cadhost {
namespace {

namespace fs = std::filesystem;

/// The sound drawings, or those of the folder "broken".
std::vector<fs::path> ListDrawings(bool broken = false)
{
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::recursive_directory_iterator entry(drawing::SharedDrawings(), error), end; !error && entry != end;
         entry.increment(error)) {
        const bool isBroken = entry->path().parent_path().filename() == "broken";
        if (isBroken == broken && (broken || entry->path().extension() == ".dxf"))
            paths.push_back(entry->path());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

/// What a conversion asks of a layout: its settings, the plotter, and its settings again.
void Exercise(IAcadApplication& application, IAcadLayout& layout)
{
    const std::string device = layout.ConfigName(), medium = layout.CanonicalMediaName(), style = layout.StyleSheet();
    const std::int32_t scale = layout.StandardScale(), type = layout.PlotType(), units = layout.PaperUnits();
    double width = 0, height = 0, numerator = 0, denominator = 0;
    AcadPoint low, high, windowLow, windowHigh;
    layout.GetPaperSize(width, height);
    layout.GetPaperMargins(low, high);
    layout.GetWindowToPlot(windowLow, windowHigh);
    layout.GetCustomScale(numerator, denominator);
    EXPECT_GT(width, 0);
    EXPECT_GT(height, 0);
    EXPECT_GT(numerator, 0);
    EXPECT_GT(denominator, 0);
    EXPECT_LT(low.x + high.x, width);
    EXPECT_LT(low.y + high.y, height);
    const auto preferences = application.Preferences();
    preferences->SetPrinterConfigPath(kShare + "/PC3");
    layout.RefreshPlotDeviceInfo();
    layout.SetConfigName("Tarnwick PS8 HighRes.pc3");
    layout.SetCanonicalMediaName("ISO_A3_(420.00_x_297.00_MM)");
    preferences->SetPrinterConfigPath(kShare + "/Plotters");
    layout.RefreshPlotDeviceInfo();
    layout.SetConfigName(device);
    layout.SetCanonicalMediaName(medium);
    layout.SetStyleSheet(style);
    layout.SetStandardScale(scale);
    layout.SetPlotType(type);
    layout.SetPaperUnits(units);
    layout.SetWindowToPlot(windowLow, windowHigh);
    layout.SetCustomScale(numerator, denominator);
    double widthBack = 0, heightBack = 0;
    AcadPoint lowBack, highBack;
    layout.GetPaperSize(widthBack, heightBack);
    layout.GetPaperMargins(lowBack, highBack);
    EXPECT_EQ(std::pair(widthBack, heightBack), std::pair(width, height));
    EXPECT_EQ(lowBack, low);
    EXPECT_EQ(highBack, high);
}

class RealDrawingsTest : public HostTest {};

TEST_F(RealDrawingsTest, ListAllTheirLayoutsAndTakeThemThroughAConversion)
{
    const auto paths = ListDrawings();
    if (paths.empty())
        GTEST_SKIP() << "no drawings in " << drawing::SharedDrawings();
    for (const fs::path& path : paths) {
        SCOPED_TRACE(path.filename().string());
        const auto document = host->Open(path.string());
        for (const LayoutFacts& facts : host->Layouts(document)) {
            SCOPED_TRACE(facts.name);
            std::printf("%-40.40s %-20.20s %8.2f x %8.2f  %-12s %-24s %llu\n", path.filename().string().c_str(),
                        facts.name.c_str(), facts.paperWidth, facts.paperHeight, facts.plotArea.substr(0, 12).c_str(),
                        facts.scale.c_str(), static_cast<unsigned long long>(facts.entities));
            ASSERT_NO_THROW(Exercise(*host->Application(), *document->Layouts()->Item(facts.name)));
        }
        document->Close(false);
    }
}

TEST_F(RealDrawingsTest, WalkThroughAllTheirEntities)
{
    const auto paths = ListDrawings();
    if (paths.empty())
        GTEST_SKIP() << "no drawings in " << drawing::SharedDrawings();
    for (const fs::path& path : paths) {
        SCOPED_TRACE(path.filename().string());
        const auto document = host->Open(path.string());
        std::size_t links = 0, attributes = 0, boxes = 0, boxless = 0;
        const auto layouts = document->Layouts();
        for (std::int32_t i = 0; i < layouts->Count(); ++i) {
            const auto space = layouts->Item(i)->Block();
            for (std::int32_t k = 0; k < space->Count(); ++k) {
                const auto entity = space->Item(k);
                EXPECT_FALSE(entity->ObjectName().empty());
                links += static_cast<std::size_t>(entity->Hyperlinks()->Count());
                AcadPoint low, high;
                try {
                    entity->GetBoundingBox(low, high);
                    ++boxes;
                    EXPECT_LE(low.x, high.x);
                    EXPECT_LE(low.y, high.y);
                } catch (const HostError& error) {
                    ++boxless; // an entity that holds no point
                    std::printf("    %s\n", error.Description().c_str());
                }
                if (IAcadBlockReference* const reference = entity->AsBlockReference(); reference != nullptr)
                    attributes += reference->GetAttributes().size() + reference->GetConstantAttributes().size();
            }
        }
        std::printf("%-40.40s links %zu, attributes %zu, boxes %zu, without %zu\n", path.filename().string().c_str(),
                    links, attributes, boxes, boxless);
        document->Close(false);
    }
}

TEST_F(RealDrawingsTest, ListOrRefuseBrokenOnes)
{
    const auto paths = ListDrawings(true);
    if (paths.empty())
        GTEST_SKIP() << "no drawings in " << drawing::SharedDrawings();
    for (const fs::path& path : paths) {
        SCOPED_TRACE(path.filename().string());
        try {
            const auto document = host->Open(path.string());
            for (const LayoutFacts& facts : host->Layouts(document))
                EXPECT_NO_THROW(Exercise(*host->Application(), *document->Layouts()->Item(facts.name)));
            document->Close(false);
        } catch (const drawing::DrawingError& error) {
            EXPECT_THAT(error.what(), ::testing::HasSubstr(path.filename().string()));
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        }
    }
    EXPECT_EQ(host->Application()->Documents()->Count(), 0);
}

} // namespace
} // namespace sm::cadhost
