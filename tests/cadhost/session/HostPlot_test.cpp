// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"

namespace sm::cadhost {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class HostPlotTest : public HostTest {
protected:
    static DxfDrawing House()
    {
        DxfDrawing drawing;
        drawing.AddSheet("Ground").entities = LineTags(0, 0, 100, 50, Tag(67, 1));
        drawing.AddSheet("Roof");
        drawing.model.entities = LineTags(0, 0, 1000, 500) + LineTags(0, 0, 5, 5);
        drawing.active = 1;
        return drawing;
    }
    /// Configures the active layout as a conversion does it.
    void Choose(IAcadDocument& document, const char* device, const char* medium)
    {
        host->Application()->Preferences()->SetPrinterConfigPath(kShare + "/PC3");
        const auto layout = document.ActiveLayout();
        layout->RefreshPlotDeviceInfo();
        layout->SetConfigName(device);
        layout->SetCanonicalMediaName(medium);
    }
    [[nodiscard]] std::string ReadAll(const char* name) const
    {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(HostPlotTest, WritesTheActiveLayoutAsPostScript)
{
    const auto document = Open(House());
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    const auto plot = document->Plot();
    plot->SetQuietErrorMode(true);
    ASSERT_TRUE(plot->PlotToFile((folder / "out.ps").string())) << host->Report(document).plotFailure;
    const std::string text = ReadAll("out.ps");
    EXPECT_THAT(text, StartsWith("%!PS-Adobe-3.0"));
    EXPECT_THAT(text, HasSubstr("%%Title:"));
    EXPECT_THAT(text, HasSubstr("Ground"));
    EXPECT_THAT(text, HasSubstr("%%Creator: "));
    EXPECT_EQ(host->Report(document).plotFailure, "");
}

constexpr const char* kRedIsBlue = "plot_style{\n 0{\n  color=-1040187137\n }\n}\n"; // 0xC20000FF

TEST_F(HostPlotTest, FindsThePlotStyleTableBesideTheDrawingThenTheUsersThenOurs)
{
    const auto plotted = [&](const char* table) {
        host = CadHost::Create({kShare, "", {}, (folder / "user").string()}); // a run of its own
        DxfDrawing drawing = House();
        drawing.sheets[0].styleSheet = table;
        drawing.sheets[0].entities = LineTags(0, 0, 100, 50, Tag(67, 1) + Tag(62, 1));
        const auto document = Open(drawing);
        Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
        document->ActiveLayout()->SetPlotWithPlotStyles(true);
        EXPECT_TRUE(document->Plot()->PlotToFile((folder / "out.ps").string())) << host->Report(document).plotFailure;
        std::string found = ReadAll("out.ps");
        found = found.substr(found.find(" cm\n") + 4);
        found = found.substr(0, found.find("RG\n") < found.find("G\n") ? found.find("RG\n") : found.find("G\n"));
        for (const auto& [remark, count] : host->Report(document).remarks)
            found += "| " + remark + " " + std::to_string(count);
        return found.substr(found.rfind('\n') + 1);
    };
    std::filesystem::create_directory(folder / "user");
    EXPECT_EQ(plotted(""), "1 0 0 ");
    EXPECT_EQ(plotted("MonoChrome.CTB"), "0 ");
    EXPECT_EQ(plotted("W:\\Office\\Styles\\monochrome.ctb"), "0 ");
    EXPECT_EQ(plotted("Florida.ctb"), "1 0 0 | plot style table \"Florida.ctb\" not found, plotted without it 1");
    Write("user/monochrome.ctb", kRedIsBlue);
    EXPECT_EQ(plotted("monochrome.ctb"), "0 0 1 ");
    const std::string broken = Write("Monochrome.ctb", "}");
    EXPECT_EQ(plotted("monochrome.ctb"), "1 0 0 | plotted without plot styles: " + broken +
                                             ", line 1: a group ends that never began. Save the plot style table "
                                             "again or choose another one. 1");
}

TEST_F(HostPlotTest, LeavesPlotStylesAsideWhereTheLayoutPlotsWithoutThem)
{
    DxfDrawing drawing = House();
    drawing.sheets[0].styleSheet = "Florida.ctb";
    const auto document = Open(drawing);
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    document->ActiveLayout()->SetPlotWithPlotStyles(false);
    ASSERT_TRUE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    EXPECT_TRUE(host->Report(document).remarks.empty());
}

TEST_F(HostPlotTest, KeepsLayersWhenItIsToldTo)
{
    host = CadHost::Create({kShare, "", {}, {}, true});
    const auto document = Open(House());
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    ASSERT_TRUE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    const std::string text = ReadAll("out.ps");
    EXPECT_THAT(text, HasSubstr("%SheetmakerLayer: 0 on <30>\n"));
    EXPECT_THAT(text, HasSubstr("/OC /L0 BDC\n"));
    EXPECT_THAT(text, HasSubstr("EMC\nQ\n"));
}

TEST_F(HostPlotTest, CountsWhatBecameOfEachEntity)
{
    const auto document = Open(House());
    DocumentReport report = host->Report(document);
    EXPECT_EQ(report.read, 3U);
    EXPECT_EQ(report.notReached, 3U);
    Choose(*document, "Tarnwick PS8 MidRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    ASSERT_TRUE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    report = host->Report(document);
    EXPECT_EQ(report.read, 3U);
    EXPECT_EQ(report.drawn, 1U);
    EXPECT_EQ(report.notReached, 2U);
    EXPECT_EQ(report.hidden + report.offPage + report.notDrawn, 0U);
}

TEST_F(HostPlotTest, RemembersWhyAPlotFailed)
{
    const auto document = Open(House());
    EXPECT_FALSE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    EXPECT_EQ(host->Report(document).plotFailure,
              "layout 'Ground': the device '\\\\office\\plotter' can't plot to a file; choose one of the plotter "
              "configurations (.pc3) of the host");
    EXPECT_FALSE(std::filesystem::exists(folder / "out.ps"));
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    EXPECT_FALSE(document->Plot()->PlotToFile((folder / "no" / "such" / "out.ps").string()));
    EXPECT_THAT(host->Report(document).plotFailure, HasSubstr("out.ps"));
    EXPECT_TRUE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    EXPECT_EQ(host->Report(document).plotFailure, "");
}

TEST_F(HostPlotTest, GivesUpWithinASheetOnceItIsCancelled)
{
    int asked = 0, allowed = 2; // the question before the plot, and one within it
    HostOptions options{kShare, "R. Draughtsman"};
    options.mayPlot = [&] { return ++asked <= allowed; };
    host = CadHost::Create(options);
    DxfDrawing drawing = House();
    for (int i = 0; i < 5000; ++i)
        drawing.sheets[0].entities += LineTags(i % 100, 0, 100 - i % 90, 50, Tag(67, 1));
    const auto document = Open(drawing);
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    const std::string path = (folder / "out.ps").string();
    EXPECT_FALSE(document->Plot()->PlotToFile(path));
    EXPECT_EQ(asked, 3) << "nobody is asked again";
    EXPECT_EQ(host->Report(document).plotFailure,
              "The plot file " + path + " was not written: the plot was cancelled.");
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_GT(host->Report(document).notReached, 4000U);
    allowed = 100000;
    EXPECT_TRUE(document->Plot()->PlotToFile(path));
    EXPECT_GT(asked, 15);
}

TEST_F(HostPlotTest, FailsWhereTheViewIsMissing)
{
    DxfDrawing drawing = House();
    drawing.sheets[0].plotType = 3;
    drawing.sheets[0].viewName = "gone";
    const auto document = Open(drawing);
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    document->ActiveLayout()->SetPlotType(3); // as a page setup asks for it that is not the layout's own
    EXPECT_FALSE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    EXPECT_THAT(host->Report(document).plotFailure, HasSubstr("gone"));
}

struct BlankRow {
    const char* name;
    std::string sheet, model;
    std::vector<std::string> remarks;
};
class BlankPageTest : public HostPlotTest, public ::testing::WithParamInterface<BlankRow> {};

TEST_P(BlankPageTest, IsTold)
{
    DxfDrawing drawing;
    drawing.AddSheet("Ground").entities = GetParam().sheet;
    drawing.model.entities = GetParam().model;
    drawing.active = 1;
    const auto document = Open(drawing);
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    ASSERT_TRUE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    std::vector<std::string> remarks;
    for (const auto& [remark, count] : host->Report(document).remarks)
        remarks.push_back(remark);
    EXPECT_EQ(remarks, GetParam().remarks);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, BlankPageTest,
    ::testing::Values(BlankRow{"WithInk", LineTags(1, 1, 20, 20, Tag(67, 1)), "", {}},
                      BlankRow{"OfNothing", "", "", {"layout \"Ground\" is blank: it holds nothing"}},
                      BlankRow{"BesideOneInTheModel",
                               "",
                               LineTags(0, 0, 9, 9),
                               {"layout \"Ground\" is blank: it holds nothing; the model holds 1 entity"}},
                      BlankRow{"BesideAModel",
                               "",
                               LineTags(0, 0, 9, 9) + LineTags(0, 0, 9, 5),
                               {"layout \"Ground\" is blank: it holds nothing; the model holds 2 entities"}},
                      BlankRow{"WithAllOutside",
                               LineTags(1000, 1000, 2000, 2000, Tag(67, 1)),
                               LineTags(0, 0, 9, 9),
                               {"layout \"Ground\" is blank: all that it holds lies outside of the plotted area"}},
                      BlankRow{"WithSomeOutside",
                               LineTags(1, 1, 20, 20, Tag(67, 1)) + LineTags(1000, 1000, 2000, 2000, Tag(67, 1)),
                               LineTags(5000, 0, 5009, 9),
                               {"layout \"Ground\": 1 of 2 entities lies outside of the plotted area"}},
                      BlankRow{"WithHiddenThings",
                               LineTags(1, 1, 20, 20, Tag(67, 1) + Tag(60, 1)),
                               "",
                               {"layout \"Ground\" is blank: nothing that it holds leaves ink on the plotted area"}}),
    [](const auto& row) { return row.param.name; });

TEST_F(HostPlotTest, AnswersThePlottersOriginUntilSomethingIsWritten)
{
    DxfDrawing drawing = House();
    DxfLayout& sheet = drawing.sheets[0];
    sheet.margins = {10, 20, 10, 20};
    sheet.plotType = 1;
    sheet.flags |= 4; // centred: the line of 100 x 50 mm in 400 x 257 mm
    sheet.origin = {3, 4};
    using Change = void (*)(IAcadLayout&);
    const Change changes[] = {[](IAcadLayout& l) { l.SetPlotWithPlotStyles(true); },
                              [](IAcadLayout& l) { l.SetPlotRotation(0); },
                              [](IAcadLayout& l) { l.SetConfigName("Tarnwick PS8 HighRes.pc3"); },
                              [](IAcadLayout& l) { l.SetCanonicalMediaName("A3"); },
                              [](IAcadLayout& l) { l.SetStyleSheet(""); },
                              [](IAcadLayout& l) {
                                  l.SetWindowToPlot({0, 0, 0}, {1, 1, 0});
                              },
                              [](IAcadLayout& l) {
                                  l.SetPlotOrigin({3, 4, 0});
                              },
                              [](IAcadLayout& l) { l.SetCustomScale(1, 1); }};
    for (const Change change : changes) {
        const auto document = Open(drawing);
        Choose(*document, "Tarnwick PS8 HighRes.pc3", "A3");
        const auto layout = document->ActiveLayout();
        EXPECT_EQ(layout->PlotOrigin(), (AcadPoint{3, 4, 0}));
        ASSERT_TRUE(document->Plot()->PlotToFile((folder / "out.ps").string()));
        EXPECT_EQ(layout->PlotOrigin(), (AcadPoint{150, 103.5, 0}));
        EXPECT_EQ(document->Layouts()->Item("Roof")->PlotOrigin(), (AcadPoint{0, 0, 0}));
        change(*layout);
        EXPECT_EQ(layout->PlotOrigin(), (AcadPoint{3, 4, 0}));
    }
}

TEST_F(HostPlotTest, TakesDocumentsOfItsOwnOnly)
{
    const auto other = CadHost::Create({kShare, ""});
    EXPECT_EQ(ErrorOf([&] { host->Report(nullptr); }), "this document belongs to another host");
    const auto document = Open(House());
    EXPECT_EQ(&host->DrawingOf(document), &host->DrawingOf(host->Application()->ActiveDocument()));
}

} // namespace
} // namespace sm::cadhost
