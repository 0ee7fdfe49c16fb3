// SPDX-License-Identifier: GPL-3.0-or-later
// "settings" with windows beside the dialog: the sheets that are chosen, the end, and what comes after it.
#include "app/ScreenStand.h"
#include "render/Canvas.h"
#include "screen/StoredMemory.h"

#include <gmock/gmock.h>

namespace sm::app {
namespace {

using beside::EndKind;
using beside::NextStep;
using testing::ElementsAre;

/// Answers the ends of runs from a list, then closes; plays the user of the list of sheets when one is handed over.
class ScriptedCompany final : public beside::ICompany {
public:
    std::deque<NextStep> steps;
    std::vector<beside::RunEnd> ends;
    std::function<void(beside::ISheetList&)> user;

    void StandBeside(beside::ISheetList* sheets) override
    {
        if (sheets != nullptr && user)
            user(*sheets);
    }
    void ShowProgress(const beside::RunProgress& one) override
    {
        progress.push_back(std::to_string(one.index) + " of " + std::to_string(one.count) + " " + one.sheet);
        isShown = true;
    }
    void HideProgress() override { isShown = false; }
    bool IsCancelled() override { return ++questions > mostQuestions || progress.size() >= cancelAt; }
    int questions = 0, mostQuestions = 1000000; ///< until the user cancels
    std::vector<std::string> progress;
    std::size_t cancelAt = 999; ///< the sheet at which the user cancels
    bool isShown = false;
    NextStep ShowEnd(const beside::RunEnd& end) override
    {
        ends.push_back(end);
        if (steps.empty())
            return NextStep::Close;
        const NextStep next = steps.front();
        steps.pop_front();
        return next;
    }
    std::vector<std::string> offered; ///< recent drawings
    std::optional<std::string> choice;
    std::optional<std::string> ChooseDrawing(const std::vector<std::string>& recent) override
    {
        offered = recent;
        return choice;
    }
};

class SettingsNext : public ScreenStand {
protected:
    int Settings(const std::string& layout)
    {
        ScreenParts parts = Parts();
        parts.company = &company;
        return RunSettings({drawing, layout}, Here(), parts, out, err);
    }
    static void AddField(FormDriver& user, ScriptedToolkit& toolkit, const std::string& name)
    {
        toolkit.When("frmDigSig", [name](FormDriver& row) {
            row.Type("txtDigSigName", name);
            row.TypeAndLeave("txtDigSigX2", "50");
            row.TypeAndLeave("txtDigSigY2", "20");
            row.Click("btnOK");
        });
        user.Click("btnDigSigAdd");
    }
    std::string Fields() { return Shell({"sign", drawing, "list"}); }
    ScriptedCompany company;
};

TEST_F(SettingsNext, TheSheetsThatAreTickedBecomePages)
{
    company.user = [](beside::ISheetList& sheets) { EXPECT_EQ(sheets.TickMeant("A-2*, 1"), ""); };
    toolkit.When("frmGUITap", [](FormDriver& user) {
        EXPECT_EQ(user.Items("cmbStampLayout").size(), 5U) << "the form lists all of them";
        user.Click("optAllLayouts");
        user.Tick("chkFileName", false);
        user.Tick("chkViewResults", false);
        user.Click("btnPDF");
    });
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0) << err.str();
    ASSERT_EQ(company.ends.size(), 1U);
    EXPECT_EQ(company.ends.front().headline, "house.pdf was made: 2 pages.");
    EXPECT_EQ(Short(company.ends.front().pdfPath), "house.pdf");
}

/// Closes the form and goes on with another drawing, as Ctrl+O does.
std::function<void(FormDriver&)> GoOnWith(const std::string& path, beside::ISheetList*& sheets)
{
    return [path, &sheets](FormDriver& user) {
        ASSERT_NE(sheets->Drawings(), nullptr);
        sheets->Drawings()->OpenNext(path);
        user.Click("btnCancel");
    };
}

TEST_F(SettingsNext, AnotherDrawingIsGoneOnWithAndOneThatCantBeOpenedLeavesTheOneBefore)
{
    const std::string other = machine.In("site.dxf");
    std::filesystem::copy_file(SM_SOURCE_DIR "/samples/flange.dxf", other);
    beside::ISheetList* sheets = nullptr;
    std::vector<std::string> layouts;
    company.user = [&](beside::ISheetList& list) {
        sheets = &list;
        layouts.push_back(list.Now({}).rows.back().name);
    };
    toolkit.When("frmGUITap", GoOnWith(other, sheets));
    toolkit.When("frmGUITap", GoOnWith(machine.In("gone.dxf"), sheets));
    toolkit.When("frmGUITap", [](FormDriver& user) { user.Click("btnCancel"); });
    hasTerminal = false;
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0);
    ASSERT_EQ(layouts.size(), 3U);
    EXPECT_EQ(layouts[0], "A-201 Section");
    EXPECT_NE(layouts[1], layouts[0]);
    EXPECT_EQ(layouts[2], layouts[1]);
    EXPECT_EQ(desktop.TakeMessages().size(), 1U) << "the drawing that can't be opened";
    EXPECT_EQ(Contents(drawing), before);
}

TEST_F(SettingsNext, WithoutADrawingTheRecentOnesAreOffered)
{
    const auto memory = CreateWindowMemory(OpenSettings(Here(), [](const std::string& text) { FAIL() << text; }));
    ScreenParts parts = Parts();
    parts.company = &company;
    parts.memory = memory.get();
    EXPECT_EQ(RunSettings({std::nullopt, std::nullopt}, Here(), parts, out, err), 0);
    EXPECT_THAT(company.offered, ElementsAre());
    company.choice = drawing;
    toolkit.When("frmGUITap", [](FormDriver& user) { user.Click("btnCancel"); });
    EXPECT_EQ(RunSettings({std::nullopt, std::nullopt}, Here(), parts, out, err), 0);
    company.choice.reset();
    EXPECT_EQ(RunSettings({std::nullopt, std::nullopt}, Here(), parts, out, err), 0);
    EXPECT_THAT(company.offered, ElementsAre(drawing));
}

TEST_F(SettingsNext, TheLayoutThatIsMadeCurrentIsTheCurrentTab)
{
    company.user = [](beside::ISheetList& sheets) { sheets.MakeCurrent("A-201 Section"); };
    toolkit.When("frmGUITap", [](FormDriver& user) {
        user.Click("optCurrentTab");
        user.Tick("chkFileName", false);
        user.Tick("chkViewResults", false);
        user.Click("btnPDF");
    });
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0);
    const std::string log = Shell({"log"});
    EXPECT_THAT(log, testing::HasSubstr("A-201 Section"));
    EXPECT_THAT(log, testing::Not(testing::HasSubstr("A-101")));
}

TEST_F(SettingsNext, ACancelledSaveBoxIsNoFailureAndMayBeShownAgain)
{
    company.steps = {NextStep::SaveAgain, NextStep::SaveAgain};
    toolkit.When("frmGUITap", [](FormDriver& user) {
        user.Tick("chkViewResults", false);
        user.Click("btnPDF");
    });
    hasTerminal = false;
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0);
    EXPECT_EQ(err.str(), "");
    EXPECT_TRUE(desktop.TakeMessages().empty());
    ASSERT_EQ(company.ends.size(), 3U);
    for (const beside::RunEnd& end : company.ends) {
        EXPECT_EQ(end.kind, EndKind::Cancelled);
        EXPECT_EQ(end.headline, "No PDF was made: the choice of a file name was cancelled.");
        EXPECT_TRUE(end.offersSave);
    }
    EXPECT_EQ(desktop.calls.size(), 3U) << "the save box";
}

TEST_F(SettingsNext, FieldsThatWereStoredSurviveTheNextShowing)
{
    company.steps = {NextStep::SettingsAgain, NextStep::SettingsAgain};
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        AddField(user, toolkit, "Checked");
        AddField(user, toolkit, "Approved");
        user.Click("btnPDF");
    });
    toolkit.When("frmGUITap", [&](FormDriver& user) {
        EXPECT_TRUE(user.Rows("lstDigSig").empty());
        AddField(user, toolkit, "Approved");
        AddField(user, toolkit, "Released");
        user.Click("btnPDF");
    });
    toolkit.When("frmGUITap", [&](FormDriver& user) { user.Click("btnCancel"); });
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0);
    EXPECT_EQ(desktop.TakeMessages().size(), 0U) << "nothing is asked about fields of this run";
    const std::string fields = Fields();
    for (const char* name : {"Checked", "Approved", "Released"})
        EXPECT_NE(fields.find(name), std::string::npos) << name;
    EXPECT_EQ(fields.find("Approved"), fields.rfind("Approved"));
}

TEST_F(SettingsNext, TheSheetsAreShownAsTheyAreMadeAndACancelLeavesTheFormerPdf)
{
    const auto allSheets = [](FormDriver& user) {
        user.Click("optAllLayouts");
        user.Tick("chkFileName", false);
        user.Tick("chkViewResults", false);
        user.Click("btnPDF");
    };
    const std::string pdf = machine.MakeFile("house.pdf", "the former one");
    toolkit.When("frmGUITap", allSheets);
    company.cancelAt = 2;
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0) << err.str();
    EXPECT_EQ(company.progress, (std::vector<std::string>{"1 of 3 A-101 Ground Floor", "2 of 3 A-102 Upper Floor"}));
    EXPECT_FALSE(company.isShown);
    ASSERT_EQ(company.ends.size(), 1U);
    EXPECT_EQ(company.ends.front().headline, "No PDF was made: the conversion was cancelled.");
    EXPECT_EQ(Contents(pdf), "the former one");
    EXPECT_TRUE(desktop.TakeMessages().empty());
    company.cancelAt = 999;
    toolkit.When("frmGUITap", allSheets);
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0);
    EXPECT_EQ(company.ends.back().headline, "house.pdf was made: 3 pages.");
}

TEST_F(SettingsNext, ACancelEndsTheSheetThatIsBeingMade)
{
    std::string lines;
    for (int i = 0; i < 20000; ++i)
        lines +=
            "0\nLINE\n8\n0\n10\n" + std::to_string(i % 97) + "\n20\n0\n11\n" + std::to_string(i % 89) + "\n21\n99\n";
    drawing = machine.MakeFile("crowd.dxf", "0\nSECTION\n2\nENTITIES\n" + lines + "0\nENDSEC\n0\nEOF\n");
    const std::string pdf = machine.MakeFile("crowd.pdf", "the former one");
    toolkit.When("frmGUITap", [](FormDriver& user) {
        user.Tick("chkFileName", false);
        user.Tick("chkViewResults", false);
        user.Click("btnPDF");
    });
    company.mostQuestions = 10;
    EXPECT_EQ(Settings("Model"), 0) << err.str();
    EXPECT_EQ(company.progress, std::vector<std::string>{"1 of 1 Model"});
    EXPECT_EQ(company.questions, 11);
    ASSERT_EQ(company.ends.size(), 1U);
    EXPECT_EQ(company.ends.front().headline, "No PDF was made: the conversion was cancelled.");
    EXPECT_EQ(Contents(pdf), "the former one");
}

/// Takes everything and keeps nothing.
class BlankCanvas final : public render::ICanvas {
public:
    void PushClip(const render::Path&, render::FillRule) override {}
    void PopClip() override {}
    void Stroke(const render::Path&, const render::StrokeStyle&) override {}
    void Fill(const render::Path&, std::uint32_t, render::FillRule) override {}
    void Text(const render::TextRun&) override {}
};

TEST_F(SettingsNext, TheStandAlonePageSetupOfADrawingHasItsPageBeside)
{
    beside::ISheetList* list = nullptr;
    company.user = [&](beside::ISheetList& sheets) { list = &sheets; };
    toolkit.When("frmPageSetup", [&](FormDriver& user) {
        ASSERT_NE(list, nullptr);
        EXPECT_TRUE(list->StandsBeside("frmPageSetup"));
        list->MakeCurrent("A-102 Upper Floor");
        user.Choose("cmbPaperSize", "ISO A4 (210.00 x 297.00 MM)");
        beside::IPageSource& page = *list->Page();
        EXPECT_TRUE(page.Renew());
        BlankCanvas canvas;
        const std::atomic<bool> stop = false;
        const beside::PreviewPage drawn = page.Draw(canvas, stop);
        EXPECT_EQ(drawn.trouble, "");
        EXPECT_NEAR(drawn.width, 210, 0.1);
        EXPECT_NEAR(drawn.height, 297, 0.1);
        user.Click("btnCancel");
    });
    ScreenParts parts = Parts();
    parts.company = &company;
    EXPECT_EQ(RunPageSetup({drawing}, Here(), parts, out, err), 0) << err.str();
    EXPECT_EQ(Contents(drawing), before);
    list = nullptr;
    toolkit.When("frmPageSetup", [&](FormDriver& user) {
        EXPECT_EQ(list, nullptr) << "there is no page without a drawing";
        user.Click("btnCancel");
    });
    EXPECT_EQ(RunPageSetup({}, Here(), parts, out, err), 0);
}

TEST_F(SettingsNext, OkEndsWithoutAWord)
{
    toolkit.When("frmGUITap", [](FormDriver& user) { user.Click("btnOK"); });
    EXPECT_EQ(Settings("A-101 Ground Floor"), 0);
    EXPECT_TRUE(company.ends.empty());
}

} // namespace
} // namespace sm::app
