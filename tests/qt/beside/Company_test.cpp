// SPDX-License-Identifier: GPL-3.0-or-later
// The windows beside the forms: the list of sheets, and the end of a run.
#include "qt/QtUser.h"
#include "qt/RecordingForm.h"

#include "beside/ProgressWindow.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <gmock/gmock.h>

namespace sm::qt {
namespace {

using beside::EndKind;
using beside::NextStep;
using beside::RunEnd;
using beside::SheetsNow;
using ::testing::ElementsAre;

/// Notes what it is told; what it tells stands in `now`.
class ListOfTwo final : public beside::ISheetList {
public:
    SheetsNow now{
        "Two sheets.", true, {{"Model", true, true, false}, {"A", false, false, true}, {"B", false, false, true}}};
    std::string reason;
    std::vector<std::string> told;

    [[nodiscard]] bool StandsBeside(const std::string& form) const override { return form == "frmTest"; }
    [[nodiscard]] SheetsNow Now(const std::vector<FormControl>&) override { return now; }
    void MakeCurrent(const std::string& name) override { told.push_back("current " + name); }
    std::string Tick(const std::string& name, bool isTicked) override
    {
        told.push_back((isTicked ? "tick " : "untick ") + name);
        return reason;
    }
    void TickAll() override { told.emplace_back("all"); }
    std::string TickMeant(const std::string& words) override
    {
        told.push_back("meant " + words);
        return reason;
    }
};

template <class Widget> Widget* InSheets(const char* name)
{
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->objectName() == "SheetsWindow" && window->isVisible())
            return window->findChild<Widget*>(name);
    return nullptr;
}

void Keep(const char* window, const char* name)
{
    for (QWidget* const one : QApplication::topLevelWidgets())
        if (one->objectName() == window && one->isVisible()) {
            QDir().mkpath(SM_SCREENS);
            one->grab().save(QStringLiteral(SM_SCREENS "/%1.png").arg(QString::fromUtf8(name)));
        }
}

class SheetsBeside : public testing::Test {
protected:
    SheetsBeside() { TheScreen().Company().StandBeside(&list); }
    ~SheetsBeside() override { TheScreen().Company().StandBeside(nullptr); }

    /// Shows a form, plays `script`, and hides it.
    void Show(const char* formName, const std::function<void()>& script)
    {
        RecordingForm form;
        form.controls[0].name = formName;
        form.Add(ControlKind::CommandButton, "btn", "Press", {10, 10, 60, 14});
        form.Show(script);
        EXPECT_EQ(InSheets<QLabel>("headline"), nullptr) << "it goes with its form";
    }
    ListOfTwo list;
};

TEST_F(SheetsBeside, StandAtTheRightOfTheirForm)
{
    Show("frmTest", [&] {
        auto* const headline = InSheets<QLabel>("headline");
        ASSERT_NE(headline, nullptr);
        EXPECT_EQ(headline->text(), "Two sheets.");
        EXPECT_GT(headline->window()->frameGeometry().left(), QtUser::Window()->frameGeometry().right());
        auto* const sheets = InSheets<QListWidget>("sheets");
        ASSERT_EQ(sheets->count(), 3);
        EXPECT_TRUE(sheets->item(0)->font().bold());
        EXPECT_EQ(sheets->item(0)->data(Qt::AccessibleTextRole), "Model (current tab)");
        EXPECT_FALSE(sheets->item(0)->data(Qt::CheckStateRole).isValid()) << "the model is no sheet";
        EXPECT_EQ(sheets->item(1)->checkState(), Qt::Checked);
        Keep("SheetsWindow", "sheets-window");
    });
    Show("frmOther", [&] { EXPECT_EQ(InSheets<QLabel>("headline"), nullptr); });
}

TEST_F(SheetsBeside, TakeWhatTheUserWants)
{
    Show("frmTest", [&] {
        auto* const sheets = InSheets<QListWidget>("sheets");
        sheets->item(1)->setCheckState(Qt::Unchecked);
        sheets->setCurrentRow(2);
        InSheets<QPushButton>("current")->click();
        InSheets<QPushButton>("all")->click();
        auto* const words = InSheets<QLineEdit>("words");
        words->setText("A*");
        QTest::keyClick(words, Qt::Key_Return);
        EXPECT_EQ(words->text(), "");
    });
    EXPECT_THAT(list.told, ElementsAre("untick A", "current B", "all", "meant A*"));
}

TEST_F(SheetsBeside, TellWhatWasNotDone)
{
    list.reason = "One sheet stays.";
    Show("frmTest", [&] {
        InSheets<QListWidget>("sheets")->item(1)->setCheckState(Qt::Unchecked);
        EXPECT_EQ(InSheets<QLabel>("reason")->text(), "One sheet stays.");
        QtUser::Rest();
        EXPECT_EQ(InSheets<QListWidget>("sheets")->item(1)->checkState(), Qt::Checked) << "as the list has it";
    });
}

TEST_F(SheetsBeside, FollowTheFormAndTheKeys)
{
    Show("frmTest", [&] {
        list.now = {"The current tab alone.", false, list.now.rows};
        QTest::keyClick(QtUser::Window(), Qt::Key_F6);
        EXPECT_EQ(InSheets<QLabel>("headline"), nullptr);
        QTest::keyClick(QtUser::Window(), Qt::Key_F6);
        EXPECT_EQ(InSheets<QLabel>("headline")->text(), "The current tab alone.");
        EXPECT_FALSE(InSheets<QLineEdit>("words")->isEnabled());
        EXPECT_FALSE(InSheets<QListWidget>("sheets")->item(1)->data(Qt::CheckStateRole).isValid());
    });
}

RunEnd Loss()
{
    return {EndKind::MadeWithLoss,
            "plan.pdf was made: 2 pages.",
            {"the stamp lies off its page", "fonts: arial.ttf drawn with LiberationSans"},
            "/jobs/plan.pdf",
            "/jobs/missing",
            "",
            true};
}

NextStep AtEnd(const RunEnd& end, const std::function<void()>& script)
{
    WhenShown(script);
    return TheScreen().Company().ShowEnd(end);
}

TEST(Progress, TellsSheetAndTimeLeft)
{
    EXPECT_EQ(TimeLeft(1, 10, 60000), "");
    EXPECT_EQ(TimeLeft(2, 2, 3000), "about 5 seconds left");
    EXPECT_EQ(TimeLeft(3, 10, 10000), "about 45 seconds left");
    EXPECT_EQ(TimeLeft(2, 101, 6000), "about 10 minutes left");
    beside::ICompany& company = TheScreen().Company();
    EXPECT_FALSE(company.IsCancelled());
    company.ShowProgress({"plan.dxf", "A-101", 1, 3});
    EXPECT_EQ(QtUser::Find<QLabel>("sheet")->text(), "Sheet 1 of 3: A-101");
    company.ShowProgress({"plan.dxf", "A-102", 2, 3});
    EXPECT_EQ(QtUser::Find<QLabel>("sheet")->text(), "Sheet 2 of 3: A-102");
    EXPECT_EQ(QtUser::Find<QLabel>("left")->text(), "about 5 seconds left");
    Keep("ProgressWindow", "progress-window");
    EXPECT_FALSE(company.IsCancelled());
    QtUser::Close();
    EXPECT_TRUE(company.IsCancelled());
    EXPECT_TRUE(QtUser::Window()->isVisible()) << "until the sheet has ended";
    EXPECT_FALSE(QtUser::Find("cancel")->isEnabled());
    company.HideProgress();
    EXPECT_FALSE(company.IsCancelled());
}

TEST(EndOfRun, TellsWhatWasMadeAndOpensIt)
{
    Opened().clear();
    const NextStep next = AtEnd(Loss(), [] {
        EXPECT_EQ(QtUser::Find<QLabel>("headline")->text(), "plan.pdf was made: 2 pages.");
        EXPECT_EQ(QtUser::Find<QListWidget>("lines")->count(), 2);
        EXPECT_EQ(QtUser::Window()->findChild<QWidget*>("viewLog"), nullptr) << "there is no log";
        Keep("EndWindow", "end-window");
        QtUser::Press("showPdf");
        EXPECT_TRUE(QtUser::Find("reason")->isHidden());
        QtUser::Press("showFolder");
        EXPECT_EQ(QtUser::Find<QLabel>("reason")->text(), "There is no program for /jobs/missing");
        QtUser::Key(Qt::Key_Escape);
    });
    EXPECT_EQ(next, NextStep::Close);
    EXPECT_THAT(Opened(), ElementsAre("/jobs/plan.pdf", "/jobs/missing"));
}

TEST(EndOfRun, OffersWhatIsNext)
{
    EXPECT_EQ(AtEnd(Loss(), [] { QtUser::Press("save"); }), NextStep::SaveAgain);
    EXPECT_EQ(AtEnd(Loss(), [] { QtUser::Press("settings"); }), NextStep::SettingsAgain);
    EXPECT_EQ(AtEnd(Loss(), [] { QtUser::Key(Qt::Key_Return); }), NextStep::Close) << "the default button";
    const RunEnd failed{EndKind::Failed, "No PDF was made."};
    EXPECT_EQ(AtEnd(failed,
                    [] {
                        for (const char* name : {"showPdf", "showFolder", "viewLog", "save", "lines"})
                            EXPECT_EQ(QtUser::Window()->findChild<QWidget*>(name), nullptr) << name;
                        QtUser::Close();
                    }),
              NextStep::Close);
}

TEST(EndOfRun, ALogThatIsGoneIsTold)
{
    RunEnd end = Loss();
    end.logPath = "/jobs/no such log";
    AtEnd(end, [] {
        QtUser::Press("viewLog");
        EXPECT_EQ(QtUser::Find<QLabel>("reason")->text(), "The log can't be read: /jobs/no such log");
        QtUser::Close();
    });
}

} // namespace
} // namespace sm::qt
