#include "HostFixture.h"

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

TEST_F(HostPlotTest, FailsWhereTheViewIsMissing)
{
    DxfDrawing drawing = House();
    drawing.sheets[0].plotType = 3;
    drawing.sheets[0].viewName = "gone";
    const auto document = Open(drawing);
    Choose(*document, "Tarnwick PS8 HighRes.pc3", "ISO_A3_(420.00_x_297.00_MM)");
    EXPECT_FALSE(document->Plot()->PlotToFile((folder / "out.ps").string()));
    EXPECT_THAT(host->Report(document).plotFailure, HasSubstr("gone"));
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
