// SPDX-License-Identifier: GPL-3.0-or-later
// The other real forms, opened as the plug-in opens them and driven by messages from another thread.
#include "FormWalk.h"

#include "hostobjects/cAcadPageSetup.h"

namespace sm::windows {
namespace {

class Forms : public FormWalk {
protected:
    /// Runs `open` while the user of the form plays.
    void Play(const std::string& form, const std::function<void(const FormUser&)>& user,
              const std::function<void()>& open)
    {
        WhileUserPlays([&] { user(toolkit.UserOf(form)); }, open);
    }
};

TEST_F(Forms, ThePageSetupDialogConvertsFormatsAndConfirms)
{
    cAcadPageSetup setup(context);
    std::shared_ptr<IAcadDocument> none;
    ASSERT_EQ(setup.Initialize(2, none), kTrue);
    bool isConfirmed = false;
    Play(
        "frmPageSetup",
        [](const FormUser& it) {
            EXPECT_EQ(it.Text("optLayout"), "Layout/ Limits");
            ChooseText(it, "cmbPaperSize", "ISO A4 (210.00 x 297.00 MM)");
            EXPECT_EQ(it.Ask("optPortrait", BM_GETCHECK), BST_CHECKED);
            it.Click("optLandscape");
            EXPECT_EQ(it.Text("cmbPaperSize"), "ISO A4 (297.00 x 210.00 MM)");
            Tick(it, "chkCenterThePlot", false);
            it.TypeAndLeave("txtPlotOffsetX", "2");
            EXPECT_EQ(it.Text("txtPlotOffsetX"), "2.00");
            it.Choose("cmbPaperUnits", 1);
            EXPECT_EQ(it.Text("lblXUnits"), "mm");
            EXPECT_EQ(it.Text("txtPlotOffsetX"), "50.8");
            it.Choose("cmbScale", 1);
            EXPECT_FALSE(it.IsEnabled("txtScaleNumer"));
            it.Click("btnOK");
        },
        [&] { isConfirmed = windows->ShowPageSetup(setup, "Global Page Setup"); });
    EXPECT_TRUE(isConfirmed);
    EXPECT_EQ(setup.Record().PlotOriginX, 50.8);
    EXPECT_EQ(setup.Record().PaperWidth, 297);
}

TEST_F(Forms, ThePickersGiveTheChoiceTheFirstOrNone)
{
    using Choice = std::optional<std::int32_t>;
    const Texts names = {"first", "second"};
    Choice choice;
    Play(
        "frmPlotStyle",
        [](const FormUser& it) {
            it.Choose("cmbPlotStyle", 1);
            it.Click("btnOK");
        },
        [&] { choice = windows->PickPlotStyle(names); });
    EXPECT_EQ(choice, Choice(1));
    Play(
        "frmJobOpts", [](const FormUser&) { FormUser::Keys({VK_RETURN}); },
        [&] { choice = windows->PickJobOptions(names); });
    EXPECT_EQ(choice, Choice(0)) << "OK without touching the list";
    Play(
        "frmPageSize", [](const FormUser& it) { it.Click("btnCancel"); },
        [&] { choice = windows->PickPageSize(names); });
    EXPECT_EQ(choice, Choice());
    Play(
        "frmPageSize", [](const FormUser& it) { it.Close(); }, [&] { choice = windows->PickPageSize(names); });
    EXPECT_EQ(choice, Choice());
}

TEST_F(Forms, TheProgressWindowCannotBeClosedWhileItScans)
{
    bool isFinished = false;
    int steps = 0;
    isFinished = windows->RunProgress([&](const std::function<void(double)>& advance) {
        const FormUser it = toolkit.UserOf("frmProgress");
        for (const double perCent : {10.0, 60.0, 100.0}) {
            PostMessageW(it.Window(), WM_CLOSE, 0, 0);
            advance(perCent);
            EXPECT_TRUE(IsWindowVisible(it.Window()));
            ++steps;
        }
        return true;
    });
    EXPECT_TRUE(isFinished);
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(TheUiThread().Front(), nullptr);
}

TEST_F(Forms, RowDialogsStayOpenUntilTheirRowIsValid)
{
    Play(
        "frmGUITap",
        [&](const FormUser& it) {
            it.TurnTo("tabPDFMaker", 3);
            it.Click("btnAttachAdd");
            const FormUser attach = toolkit.UserOf("frmAttach");
            attach.Click("btnOK");
            EXPECT_TRUE(attach.IsSeen("txtAttachFile")) << "without a file";
            FormUser::Keys({VK_ESCAPE});
            it.TurnTo("tabPDFMaker", 4);
            it.Click("btnDigSigAdd");
            const FormUser digSig = toolkit.UserOf("frmDigSig");
            digSig.Type("txtDigSigName", "Client");
            digSig.Click("btnOK");
            EXPECT_TRUE(digSig.IsSeen("txtDigSigName")) << "without a rectangle";
            digSig.Click("btnCancel");
            it.Click("btnCancel");
        },
        [&] { EXPECT_EQ(windows->ShowConversionSettings(), 0); });
    const std::vector<Message> messages = Messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].text, "Please enter a valid Filename, Layout Tab and Icon Location.");
    EXPECT_EQ(messages[1].text, "You must enter a valid Name, Layout Tab and Rectangle.");
    (void)Log();
}

TEST_F(Forms, TheStampsTextTakesItsMacrosAtTheCaret)
{
    Play(
        "frmGUITap",
        [&](const FormUser& it) {
            it.TurnTo("tabPDFMaker", 2);
            it.Choose("cmbStampText", 1);
            it.Click("btnStampEdit");
            const FormUser stamp = toolkit.UserOf("frmCustomStamp");
            stamp.Type("txtCustomStamp", "by :");
            stamp.Ask("txtCustomStamp", EM_SETSEL, 3, 3);
            stamp.PressTool("btnUser");
            EXPECT_EQ(stamp.Text("txtCustomStamp"), "by &[User]:");
            FormUser::Keys({'X'});
            EXPECT_EQ(stamp.Text("txtCustomStamp"), "by &[User]x:") << "typing goes on behind what was put in";
            stamp.Click("btnOk");
            EXPECT_EQ(it.Text("cmbStampText"), "by R. Draughtsmanx:");
            it.Click("btnCancel");
        },
        [&] { EXPECT_EQ(windows->ShowConversionSettings(), 0); });
    (void)Log();
}

} // namespace
} // namespace sm::windows
