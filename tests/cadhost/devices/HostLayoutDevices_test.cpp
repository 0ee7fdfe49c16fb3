// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/LayoutFixture.h"

namespace sm::cadhost {
namespace {

using ::testing::ElementsAre;

TEST_F(HostLayoutTest, ChoosesTheSuitesPlotterAndItsSheets)
{
    const auto layout = WithPlotter(SheetWithLine(), "ISO_A2_(594.00_x_420.00_MM)");
    EXPECT_EQ(layout->ConfigName(), "Tarnwick PS8 HighRes.pc3");
    EXPECT_EQ(layout->CanonicalMediaName(), "ISO_A2_(594.00_x_420.00_MM)");
    EXPECT_EQ(layout->GetLocaleMediaName("ISO_A2_(594.00_x_420.00_MM)"), "ISO A2 (594.00 x 420.00 MM)");
    EXPECT_EQ(SizeOf(*layout), "(594, 420)");
    EXPECT_EQ(MarginsOf(*layout), "{ 5, 5, 5, 5 }");
    EXPECT_EQ(layout->GetCanonicalMediaNames().size(), 29U); // the 28 of the plotter, and the drawing's "A3"
}

TEST_F(HostLayoutTest, KeepsTheMarginsOfTheDrawingsOwnPaper)
{
    EXPECT_EQ(MarginsOf(*WithPlotter(SheetWithLine(), "ISO_A3_(420.00_x_297.00_MM)")), "{ 5, 17, 6, 18 }");
    DxfDrawing turned = SheetWithLine();
    turned.sheets[0].rotation = 1;
    std::swap(turned.sheets[0].paperWidth, turned.sheets[0].paperHeight);
    const auto layout = WithPlotter(turned, "ISO_A3_(420.00_x_297.00_MM)");
    layout->SetPlotRotation(0);
    EXPECT_EQ(MarginsOf(*layout), "{ 18, 5, 17, 6 }");
    EXPECT_EQ(SizeOf(*layout), "(420, 297)");
}

TEST_F(HostLayoutTest, DoesNotTurnThePaperSize)
{
    const auto layout = OpenSheet(SheetWithLine());
    layout->SetPlotRotation(1);
    EXPECT_EQ(SizeOf(*layout), "(420, 297)");
}

TEST_F(HostLayoutTest, PutsTheUsersOwnNamesBack)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.sheets[0].styleSheet = "Florida.ctb";
    const auto layout = WithPlotter(drawing, "ISO_A2_(594.00_x_420.00_MM)");
    layout->SetStyleSheet("");
    host->Application()->Preferences()->SetPrinterConfigPath(kShare + "/Plotters");
    layout->RefreshPlotDeviceInfo();
    layout->SetConfigName("\\\\office\\plotter");
    layout->RefreshPlotDeviceInfo();
    EXPECT_THAT(layout->GetCanonicalMediaNames(), ElementsAre("A3"));
    layout->SetCanonicalMediaName("A3");
    layout->SetStyleSheet("Florida.ctb");
    EXPECT_EQ(SizeOf(*layout), "(420, 297)");
    EXPECT_EQ(MarginsOf(*layout), "{ 5, 17, 6, 18 }");
}

TEST_F(HostLayoutTest, ListsDevicesAsOfTheLastRefresh)
{
    const auto layout = OpenSheet(SheetWithLine());
    EXPECT_THAT(layout->GetPlotDeviceNames(), ElementsAre("None", "\\\\office\\plotter"));
    host->Application()->Preferences()->SetPrinterConfigPath(kShare + "/PC3");
    EXPECT_THAT(layout->GetPlotDeviceNames(), ElementsAre("None", "\\\\office\\plotter"));
    layout->RefreshPlotDeviceInfo();
    EXPECT_THAT(layout->GetPlotDeviceNames(),
                ElementsAre("None", "Tarnwick PS6 HighRes.pc3", "Tarnwick PS6 MidRes.pc3", "Tarnwick PS7 HighRes.pc3",
                            "Tarnwick PS7 MidRes.pc3", "Tarnwick PS8 HighRes.pc3", "Tarnwick PS8 MidRes.pc3",
                            "\\\\office\\plotter"));
}

TEST_F(HostLayoutTest, OffersTheMediaOfTheOtherLayoutsToo)
{
    DxfDrawing drawing = SheetWithLine();
    DxfLayout& second = drawing.AddSheet("Sheet 2");
    second.configName = "plotter of sheet 2";
    second.mediaName = "";
    second.paperWidth = 300;
    second.paperHeight = 200;
    const auto layout = OpenSheet(drawing);
    EXPECT_THAT(layout->GetCanonicalMediaNames(), ElementsAre("A3", "User_(300.00_x_200.00_MM)"));
    EXPECT_THAT(layout->GetPlotDeviceNames(), ElementsAre("None", "\\\\office\\plotter", "plotter of sheet 2"));
    layout->SetCanonicalMediaName("User_(300.00_x_200.00_MM)");
    EXPECT_EQ(SizeOf(*layout), "(300, 200)");
}

TEST_F(HostLayoutTest, TrustsTheSizeOverTheName)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.sheets[0].mediaName = "ISO_A4_(210.00_x_297.00_MM)";
    EXPECT_EQ(SizeOf(*OpenSheet(drawing)), "(420, 297)");
    EXPECT_EQ(SizeOf(*WithPlotter(drawing, "ISO_A4_(210.00_x_297.00_MM)")), "(210, 297)");
}

TEST_F(HostLayoutTest, TellsWhatIsWrongWithABrokenPlotterFile)
{
    Write("Broken.pc3", "Format: 9\n");
    const auto layout = OpenSheet(SheetWithLine());
    host->Application()->Preferences()->SetPrinterConfigPath(folder.string());
    layout->RefreshPlotDeviceInfo();
    EXPECT_EQ(ErrorOf([&] { layout->SetConfigName("Broken.pc3"); }),
              "Broken.pc3, line 1: format '9' is not known, only 1");
    EXPECT_EQ(layout->ConfigName(), "\\\\office\\plotter");
}

TEST_F(HostLayoutTest, ListsStyleTablesOfTheDrawingsFolderAndOfTheDrawing)
{
    DxfDrawing drawing = SheetWithLine();
    drawing.sheets[0].styleSheet = "Florida.ctb";
    Write("beside.ctb", "x");
    Write("named.STB", "x");
    Write("plot.txt", "x");
    const auto layout = OpenSheet(drawing);
    EXPECT_THAT(layout->GetPlotStyleTableNames(),
                ElementsAre("Screening 100%.ctb", "Screening 25%.ctb", "Screening 50%.ctb", "Screening 75%.ctb",
                            "acad.ctb", "acad.stb", "grayscale.ctb", "monochrome.ctb", "monochrome.stb", "beside.ctb",
                            "named.STB", "Florida.ctb"));
    layout->SetStyleSheet("beside.ctb");
    EXPECT_EQ(layout->StyleSheet(), "beside.ctb");
    layout->SetStyleSheet("None");
    EXPECT_EQ(layout->StyleSheet(), "");
}

struct NoPaperRow {
    const char* name;
    int measurement, rotation;
    double width, height; ///< of the contents
    const char* medium;
    const char* size;
};
class NoPaperTest : public HostLayoutTest, public ::testing::WithParamInterface<NoPaperRow> {};

TEST_P(NoPaperTest, GetsASheetThatLiesAsItsContents)
{
    const NoPaperRow& row = GetParam();
    DxfDrawing drawing;
    drawing.header = Tag(9, "$MEASUREMENT") + Tag(70, row.measurement);
    drawing.model.paperWidth = drawing.model.paperHeight = 0;
    DxfLayout& sheet = drawing.AddSheet("Sheet 1");
    sheet.mediaName = "";
    sheet.configName = "";
    sheet.paperWidth = sheet.paperHeight = 0;
    sheet.margins = {};
    sheet.rotation = row.rotation;
    sheet.entities = LineTags(0, 0, row.width, row.height, Tag(67, 1));
    const auto layout = OpenSheet(drawing);
    EXPECT_EQ(layout->ConfigName(), "None");
    EXPECT_EQ(layout->CanonicalMediaName(), row.medium);
    EXPECT_EQ(SizeOf(*layout), row.size);
    EXPECT_EQ(MarginsOf(*layout), "{ 5, 5, 5, 5 }");
    EXPECT_THAT(layout->GetCanonicalMediaNames(), ElementsAre(row.medium));
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, NoPaperTest,
    ::testing::Values(NoPaperRow{"MetricWide", 1, 0, 20, 10, "ISO_A4_(297.00_x_210.00_MM)", "(297, 210)"},
                      NoPaperRow{"MetricHigh", 1, 0, 10, 20, "ISO_A4_(210.00_x_297.00_MM)", "(210, 297)"},
                      NoPaperRow{"MetricWideTurned", 1, 1, 20, 10, "ISO_A4_(210.00_x_297.00_MM)", "(210, 297)"},
                      NoPaperRow{"ImperialWide", 0, 0, 20, 10, "ANSI_A_(11.00_x_8.50_Inches)", "(279.4, 215.9)"},
                      NoPaperRow{"ImperialHigh", 0, 0, 10, 20, "ANSI_A_(8.50_x_11.00_Inches)", "(215.9, 279.4)"}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::cadhost
