// SPDX-License-Identifier: GPL-3.0-or-later
// The stand-alone page setup dialog, through the page setup object that opens it.
#include "hostobjects/cAcadPageSetup.h"
#include "ui/FormWindows.h"
#include "ui/PageSetupStand.h"

namespace sm {
namespace {

class PageSetupDialog : public PageSetupStand {
protected:
    std::unique_ptr<IWindows> forms = CreateFormWindows(context, toolkit);
    std::shared_ptr<IAcadDocument> document = host.Document(drawing);
    cAcadPageSetup setup{context};
    bool Show() { return forms->ShowPageSetup(setup, "Global Page Setup"); }
};

TEST_F(PageSetupDialog, ConfirmedEditsReachTheObjectAndUpdateStoresThem)
{
    std::shared_ptr<IAcadDocument> none;
    ASSERT_EQ(setup.Initialize(2, none), kTrue);
    toolkit.When("frmPageSetup", [](FormDriver& it) {
        EXPECT_EQ(it.Title(), "Global Page Setup");
        EXPECT_EQ(it.Caption("optLayout"), "Layout/ Limits");
        EXPECT_EQ(it.Control("lstPaperSize").columns[2].header, "Hieght");
        it.Choose("cmbPaperSize", "ISO A4 (210.00 x 297.00 MM)");
        it.Choose("cmbPlotStyle", "Florida.ctb");
        it.Tick("chkCenterThePlot", false);
        it.TypeAndLeave("txtPlotOffsetX", "2");
        it.Click("btnOK");
    });
    EXPECT_TRUE(Show());
    EXPECT_TRUE(setup.IsChanged());
    EXPECT_EQ(Setting("PaperWidth"), "(absent)") << "storing is left to Update";
    setup.Update();
    EXPECT_EQ(Setting("CanonicalMediaName"), "ISO_A4_(210.00_x_297.00_MM)");
    EXPECT_EQ(Setting("PaperWidth"), "210");
    EXPECT_EQ(Setting("PaperHeight"), "297");
    EXPECT_EQ(Setting("StyleSheet"), "Florida.ctb");
    EXPECT_EQ(Setting("CenterPlot"), "0");
    EXPECT_EQ(Setting("PlotOriginX"), "50.8");
    EXPECT_EQ(Setting("ShowPlotStyles"), "1");
    EXPECT_EQ(setup.Record().ConfigName, "*TARNWICK*");
}

TEST_F(PageSetupDialog, CancelledEditsAreForgotten)
{
    std::shared_ptr<IAcadDocument> none;
    ASSERT_EQ(setup.Initialize(2, none), kTrue);
    const PageSetupRecord before = setup.Record();
    const std::function<void(FormDriver&)> ways[] = {[](FormDriver& it) { it.Click("btnCancel"); },
                                                     [](FormDriver& it) { EXPECT_TRUE(it.Escape()); },
                                                     [](FormDriver& it) { it.Close(); }};
    for (const auto& leave : ways) {
        toolkit.When("frmPageSetup", [&](FormDriver& it) {
            it.Choose("cmbPaperSize", "ISO A4 (210.00 x 297.00 MM)");
            leave(it);
        });
        EXPECT_FALSE(Show());
        EXPECT_EQ(setup.Record(), before);
        EXPECT_FALSE(setup.IsChanged());
    }
}

TEST_F(PageSetupDialog, IsTitledByItsSource)
{
    Surroundings wired{failingRegistry, failingFiles, desktop, *forms, library, locale, clock, component, observer};
    CallContext wiredContext{wired, context.g_AcadApp, context.g_AcadDoc, context.g_Log};
    cAcadPageSetup wiredSetup(wiredContext);
    Texts titles;
    toolkit.Whenever("frmPageSetup", [&](FormDriver& it) {
        titles.push_back(it.Title());
        it.Click("btnCancel");
    });
    ASSERT_EQ(wiredSetup.Initialize(1, document), kTrue);
    wiredSetup.ShowPageSetup();
    ASSERT_EQ(wiredSetup.Initialize(2, document), kTrue);
    wiredSetup.ShowPageSetup();
    EXPECT_EQ(titles, (Texts{"Drawing Page Setup", "Global Page Setup"}));
    EXPECT_EQ(dialogUser.Title(), "Page Setup");
}

TEST_F(PageSetupDialog, EverythingIsOnFromTheStart)
{
    ASSERT_TRUE(FillDialog());
    EXPECT_TRUE(dialogUser.IsEnabled("cmbPaperSize"));
    EXPECT_EQ(Shown(dialogUser, "txtScaleNumer"), "txtScaleNumer '' off face");
    EXPECT_EQ(Shown(dialogUser, "txtPlotOffsetX"), "txtPlotOffsetX '' off face");
    EXPECT_EQ(Shown(dialogUser, "optWindow"), "optWindow unticked off");
    EXPECT_FALSE(dialog.Has("chkPageSetup"));
    EXPECT_FALSE(dialog.Has("btnWindowPoints"));
    dialog.PDFPageSetupOff();
    EXPECT_EQ(Shown(dialogUser, "cmbPaperSize"), "cmbPaperSize 'ANSI A (11.00 x 8.50 Inches)' off face");
}

TEST_F(PageSetupDialog, ListsAreShownWhereThereAreAny)
{
    drawing->Views = {{"Plan", {}, 1, 1}};
    record.ViewToPlot = "Plan";
    record.StyleSheet = "Florida.ctb";
    ASSERT_TRUE(FillDialog());
    EXPECT_TRUE(dialogUser.IsVisible("cmbView"));
    EXPECT_FALSE(dialogUser.IsVisible("txtView"));
    EXPECT_TRUE(dialogUser.IsVisible("cmbPlotStyle"));
    EXPECT_FALSE(dialogUser.IsVisible("txtPlotStyle"));
    EXPECT_EQ(dialogUser.Text("cmbView"), "Plan");
    dialogUser.Choose("cmbView", "Plan");
    dialogUser.Choose("cmbPlotStyle", "monochrome.ctb");
    ASSERT_TRUE(SaveDialog());
    EXPECT_EQ(record.ViewToPlot, "Plan");
    EXPECT_EQ(record.StyleSheet, "monochrome.ctb");
    dialogUser.Choose("cmbPlotStyle", "None");
    ASSERT_TRUE(SaveDialog());
    EXPECT_EQ(record.StyleSheet, "");
    EXPECT_EQ(record.PlotWithPlotStyles, 0);
}

TEST_F(PageSetupDialog, WithoutADrawingTheInstalledStylesAreListed)
{
    context.g_AcadDoc = nullptr;
    forms = CreateFormWindows(context, toolkit, nullptr, [] { return Texts{"grayscale.ctb", "monochrome.ctb"}; });
    std::shared_ptr<IAcadDocument> none;
    ASSERT_EQ(setup.Initialize(2, none), kTrue);
    toolkit.When("frmPageSetup", [](FormDriver& it) {
        EXPECT_EQ(it.Items("cmbPlotStyle"), (Texts{"None", "grayscale.ctb", "monochrome.ctb"}));
        EXPECT_TRUE(it.IsVisible("cmbPlotStyle"));
        EXPECT_FALSE(it.IsVisible("txtPlotStyle"));
        EXPECT_TRUE(it.IsVisible("txtView"));
        it.Choose("cmbPlotStyle", "monochrome.ctb");
        it.Click("btnOK");
    });
    EXPECT_TRUE(Show());
    EXPECT_EQ(setup.Record().StyleSheet, "monochrome.ctb");
}

TEST_F(PageSetupDialog, AStyleThatIsGoneIsToldAndKept)
{
    record.StyleSheet = "Gone.ctb";
    ASSERT_TRUE(FillDialog());
    EXPECT_EQ(dialog.Selection("cmbPlotStyle"), kNothingSelected);
    EXPECT_EQ(dialog.Control("cmbPlotStyle").notice, "Gone.ctb (missing)");
    const Texts entries = dialogUser.Items("cmbPlotStyle");
    EXPECT_EQ(std::count(entries.begin(), entries.end(), "Gone.ctb"), 0);
    ASSERT_TRUE(SaveDialog());
    EXPECT_EQ(record.StyleSheet, "Gone.ctb");
    for (const char* there : {"", "Florida.ctb"}) {
        record.StyleSheet = there;
        ASSERT_TRUE(FillDialog());
        EXPECT_EQ(dialog.Control("cmbPlotStyle").notice, "") << there;
    }
}

TEST_F(PageSetupDialog, NamesAreTypedWhereThereIsNoDrawing)
{
    context.g_AcadDoc = nullptr;
    styles = {"None"};
    record.PlotType = 1;
    ASSERT_TRUE(FillDialog());
    EXPECT_TRUE(dialogUser.IsVisible("txtView"));
    EXPECT_FALSE(dialogUser.IsVisible("cmbView"));
    EXPECT_TRUE(dialogUser.IsVisible("txtPlotStyle"));
    EXPECT_TRUE(dialogUser.IsReachable("optView"));
    dialogUser.Click("optView");
    dialogUser.Type("txtView", "Plan");
    dialogUser.Type("txtPlotStyle", "acad.ctb");
    ASSERT_TRUE(SaveDialog());
    EXPECT_EQ(record.PlotType, 3);
    EXPECT_EQ(record.ViewToPlot, "Plan");
    EXPECT_EQ(record.StyleSheet, "acad.ctb");
}

TEST_F(PageSetupDialog, UnofferedNamesAreKept)
{
    drawing->Views = {{"Plan", {}, 1, 1}};
    record.ViewToPlot = "Vanished";
    record.StyleSheet = "somebody's.ctb";
    ASSERT_TRUE(FillDialog());
    ASSERT_TRUE(SaveDialog());
    EXPECT_EQ(record.ViewToPlot, "Vanished");
    EXPECT_EQ(record.StyleSheet, "somebody's.ctb");
}

TEST_F(PageSetupDialog, LimitsStayLimitsAndLayoutStaysLayout)
{
    for (const std::int32_t type : {2, 5}) {
        record.PlotType = type;
        ASSERT_TRUE(FillDialog());
        EXPECT_TRUE(dialogUser.IsTicked("optLayout"));
        ASSERT_TRUE(SaveDialog());
        EXPECT_EQ(record.PlotType, type);
    }
    record.PlotType = 1;
    ASSERT_TRUE(FillDialog());
    dialogUser.Click("optLayout");
    ASSERT_TRUE(SaveDialog());
    EXPECT_EQ(record.PlotType, 5);
}

TEST_F(PageSetupDialog, KnowsTheSameRulesAsTheSettingsDialog)
{
    drawing->Views = {{"Plan", {}, 1, 1}};
    record.WinUpperRightX = record.WinUpperRightY = 3;
    ASSERT_TRUE(FillDialog());
    FormDriver& it = dialogUser;
    it.Click("optPortrait");
    EXPECT_EQ(it.Text("cmbPaperSize"), "ANSI A (8.50 x 11.00 Inches)");
    it.Click("optLandscape");
    EXPECT_EQ(it.Text("cmbPaperSize"), "ANSI A (11.00 x 8.50 Inches)");
    for (const char* option : {"optDisplay", "optExtents", "optView", "optWindow", "optLayout"})
        it.Click(option);
    EXPECT_EQ(Shown(it, "chkCenterThePlot"), "chkCenterThePlot unticked off");
    it.Choose("cmbScale", "Custom");
    it.Choose("cmbPaperUnits", "Millimeters");
    EXPECT_EQ(Shown(it, "txtScaleNumer"), "txtScaleNumer '25.4' on window");
    for (const char* box : {"txtScaleNumer", "txtPlotOffsetX", "txtPlotOffsetY"}) {
        it.TypeAndLeave(box, "1.26");
        EXPECT_EQ(it.Text(box), "1.3") << box;
        it.Type(box, "2");
        EXPECT_TRUE(it.Enter(box));
        EXPECT_EQ(it.Text(box), "2.0") << box;
    }
    it.TypeAndLeave("txtScaleDenom", "4");
    EXPECT_TRUE(it.Enter("txtScaleDenom"));
    EXPECT_EQ(it.Text("txtScaleDenom"), "4.00");
    it.Tick("chkPlotStyles", false);
    EXPECT_FALSE(it.IsEnabled("chkPlotLineWeights"));
    dialog.cmbPaperUnits_click();
    EXPECT_EQ(it.Text("txtScaleNumer"), "2.0");
}

TEST_F(PageSetupDialog, HelpOpensItsPage)
{
    toolkit.When("frmPageSetup", [](FormDriver& it) {
        it.Click("btnHelp");
        it.Click("btnCancel");
    });
    EXPECT_FALSE(Show());
    EXPECT_EQ(desktop.calls, (Texts{"ShowHelp C:\\Program Files\\Tarnwick\\acadsmpdf.hlp 400"}));
}

const char* const kUnknownError =
    "An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\nto "
    "Tarnwick Technical Support at support@tarnwick.example and attach the Log File that was created. \r\n\r\nWould "
    "you like to view the log file now?";

TEST_F(PageSetupDialog, AFailedLoadIsToldAndShowsNothing)
{
    host.tape.FailCall("Views.Count", "Automation error");
    EXPECT_FALSE(Show());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetPageSetupTab -Automation error",
                            "RUNTIME ERROR: ShowPageSetup -SetPageSetupTab failed."}));
    EXPECT_EQ(Messages(), (std::vector<Message>{
                              ProductMessage(kUnknownError, MessageButtons::OkCancel, MessageIcon::Critical, 170)}));
    EXPECT_EQ(toolkit.events, Texts{});
}

TEST_F(PageSetupDialog, WithoutAScreenNothingIsConfirmed)
{
    toolkit.hasScreen = false;
    EXPECT_FALSE(Show());
    EXPECT_FALSE(setup.IsChanged());
}

} // namespace
} // namespace sm
