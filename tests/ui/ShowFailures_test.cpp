// SPDX-License-Identifier: GPL-3.0-or-later
// The ways in which the show routine fails.
#include "ui/ShowStand.h"

namespace sm {
namespace {

class Failures : public ShowSettings {};

TEST_F(Failures, WithoutPlotSettingsNothingIsShown)
{
    host.tape.FailCall("Layout.ConfigName", "not initialized");
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Messages(), (std::vector<Message>{
                              ProductMessage(kNotInitialized, MessageButtons::Ok, MessageIcon::Exclamation, 190)}));
    EXPECT_EQ(toolkit.events, Texts{});
    ExpectLog();
}

TEST_F(Failures, ALoadThatFailsTakesTheErrorPath)
{
    host.tape.FailCall("Document.ActiveLayout", "no layout");
    EXPECT_EQ(Show(), 0);
    ExpectUnknownError();
    ExpectLog({"RUNTIME ERROR: ShowConversionSettings -LoadForDialog failed."});
    EXPECT_EQ(toolkit.events, Texts{});
}

TEST_F(Failures, ATabThatCannotBeFilledTakesTheErrorPath)
{
    const struct {
        const char* call;
        int good; ///< calls that succeed before
        const char* routine;
    } rows[] = {{"Views.Count", 0, "SetPageSetupTab"},
                {"Layouts.Count", 0, "SetStampTab"},
                {"Layouts.Count", 1, "SetAttachTab"},
                {"Layouts.Count", 2, "SetDigSigTab"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.routine);
        host.tape.FailCall(row.call, "Automation error", -1, row.good);
        EXPECT_EQ(Show(), 0);
        ExpectUnknownError();
        ExpectLog({std::string("RUNTIME ERROR: ") + row.routine + " -Automation error",
                   std::string("RUNTIME ERROR: ShowConversionSettings -") + row.routine + " failed."});
        host.tape.StopFailing();
    }
    EXPECT_EQ(toolkit.events, Texts{});
}

TEST_F(Failures, TheLogIsShownWhenTheUserAsksForIt)
{
    context.g_AcadDoc = nullptr;
    desktop.answers = {MessageAnswer::Ok};
    EXPECT_EQ(Show(), 0);
    ExpectUnknownError();
    ExpectLog({"RUNTIME ERROR: ShowConversionSettings -The drawing is not available."});
    EXPECT_EQ(library.tape.CallsOf("Log.ShowLogFile"), (Lines{"Log.ShowLogFile SmPdfAcad.log"}));
}

TEST_F(Failures, ADialogThatCannotBeShownTakesTheErrorPath)
{
    toolkit.hasScreen = false;
    EXPECT_EQ(Show(), 0);
    ExpectUnknownError();
    ExpectLog({"RUNTIME ERROR: ShowConversionSettings -The settings dialog failed."});
}

/// Breaks its promise not to throw, once told to.
class BreakingLocale final : public FixedLocale {
public:
    bool broken = false;
    char DecimalSeparator() override
    {
        if (broken)
            throw HostError("no locale");
        return FixedLocale::DecimalSeparator();
    }
};

TEST_F(Failures, CreatePdfWhoseSaveFailsConvertsNothing)
{
    BreakingLocale breaking;
    Surroundings wired{failingRegistry, failingFiles, desktop, windows, library, breaking, clock, component, observer};
    CallContext wiredContext{wired, context.g_AcadApp, context.g_AcadDoc, context.g_Log};
    for (const char* button : {"btnPDF", "btnOK"}) {
        breaking.broken = false;
        toolkit.When("frmGUITap", [&](FormDriver& it) {
            breaking.broken = true;
            it.Click(button);
        });
        EXPECT_EQ(ShowConversionSettings(wiredContext, toolkit), 0);
        ExpectUnknownError();
        ExpectLog({"RUNTIME ERROR: ShowConversionSettings -no locale"});
    }
}

} // namespace
} // namespace sm
