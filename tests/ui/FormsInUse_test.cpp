// SPDX-License-Identifier: GPL-3.0-or-later
// The pickers and the progress window where the conversion calls them.
#include "annotations/mdlAcadPdfMarks.h"
#include "plotting/JobOptions.h"
#include "plotting/PaperTable.h"
#include "plotting/PlotConfig.h"
#include "settings/mdlDataKegIO.h"
#include "ui/FormWindows.h"
#include "ui/UiStand.h"

namespace sm {
namespace {

class FormsInUse : public UiStand {
protected:
    FormsInUse() { wired.g_Log = context.g_Log; }

    std::unique_ptr<IWindows> forms = CreateFormWindows(wired, toolkit);
    Surroundings wiredSurroundings{failingRegistry, failingFiles, desktop,   *forms,  library,
                                   locale,          clock,        component, observer};
    CallContext wired{wiredSurroundings, host.Application(), host.Document(drawing), nullptr};
};

TEST_F(FormsInUse, AMissingPlotStyleIsPickedOrCancelled)
{
    const auto layout = host.Layout(ground);
    PageSetupRecord record;
    ASSERT_TRUE(ReadLayoutPageSetup(wired, *layout, record));
    record.StyleSheet = "vanished.ctb";
    toolkit.When("frmPlotStyle", [](FormDriver& it) {
        EXPECT_EQ(it.Items("cmbPlotStyle"), (Texts{"None", "Florida.ctb", "monochrome.ctb"}));
        it.Choose("cmbPlotStyle", "monochrome.ctb");
        it.Click("btnOK");
    });
    EXPECT_EQ(SetAcadPlotConfig(wired, *layout, record, kFalse, false), kConfigWritten);
    EXPECT_EQ(ground->StyleSheet, "monochrome.ctb");
    toolkit.When("frmPlotStyle", [](FormDriver& it) { it.Click("btnCancel"); });
    EXPECT_EQ(SetAcadPlotConfig(wired, *layout, record, kFalse, false), kConfigStyleCancelled);
    toolkit.hasScreen = false;
    EXPECT_EQ(SetAcadPlotConfig(wired, *layout, record, kFalse, false), kConfigFailed);
    (void)Log();
}

TEST_F(FormsInUse, JobOptionsArePickedAndStoredOrCancelled)
{
    toolkit.When("frmJobOpts", [](FormDriver& it) {
        EXPECT_EQ(it.Items("cmbJobOpts"), (Texts{"Graphics [600 dpi]", "Proof"}));
        it.Choose("cmbJobOpts", "Proof");
        it.Click("btnOK");
    });
    EXPECT_EQ(PickJobOptions(wiredSurroundings), "Proof");
    EXPECT_EQ(Setting("JobOptionsFile"), "Proof");
    toolkit.When("frmJobOpts", [](FormDriver& it) { it.Close(); });
    EXPECT_EQ(PickJobOptions(wiredSurroundings), std::nullopt);
}

TEST_F(FormsInUse, APageSizeIsPickedAfterABeepOrCancelled)
{
    std::vector<PaperSize> table;
    LoadPaperTable(table);
    PageSetupRecord record;
    record.CanonicalMediaName = "unknown";
    toolkit.When("frmPageSize", [](FormDriver& it) { EXPECT_TRUE(it.Escape()); });
    EXPECT_FALSE(PickPageSize(wired, record, table));
    EXPECT_EQ(record.CanonicalMediaName, "unknown");
    toolkit.When("frmPageSize", [](FormDriver& it) {
        EXPECT_EQ(it.Items("cmbPageSize").size(), 28U);
        it.Choose("cmbPageSize", "ISO A4 (210.00 x 297.00 MM)");
        it.Click("btnOK");
    });
    EXPECT_TRUE(PickPageSize(wired, record, table));
    EXPECT_EQ(record.CanonicalMediaName, "ISO_A4_(210.00_x_297.00_MM)");
    EXPECT_EQ(desktop.beeps, 2);
}

TEST_F(FormsInUse, TheScanRunsInsideTheProgressWindow)
{
    ground->Block.Entities.resize(3);
    ground->Block.Entities[1].Hyperlinks = {{"https://example.org", ""}};
    ground->Block.Entities[1].UpperRight = {1, 1, 0};
    const auto pubDoc = library.CreatePubDoc();
    TransferFlags transfer;
    transfer.TransferDrawingHlinks = kTrue;
    EXPECT_TRUE(AddPdfMarks(wired, *pubDoc, *wired.g_AcadDoc, transfer, false));
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddLinkMark").size(), 1U);
    EXPECT_EQ(toolkit.events, (Texts{"show frmProgress", "pump frmProgress", "pump frmProgress", "pump frmProgress",
                                     "pump frmProgress", "hide frmProgress"}));
    toolkit.events.clear();
    EXPECT_TRUE(AddPdfMarks(wired, *pubDoc, *wired.g_AcadDoc, transfer, true));
    EXPECT_EQ(toolkit.events, Texts{}) << "a silent run shows no window";
    (void)Log();
}

} // namespace
} // namespace sm
