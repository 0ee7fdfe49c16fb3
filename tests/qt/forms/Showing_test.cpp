// SPDX-License-Identifier: GPL-3.0-or-later
// How windows come and go.
#include "qt/RecordingForm.h"

#include <QAbstractEventDispatcher>
#include <QLineEdit>
#include <QPushButton>

#include <csignal>

namespace sm::qt {
namespace {

using enum ControlKind;
using Reports = RecordingForm::Reports;

class Showing : public testing::Test {
protected:
    Showing()
    {
        form.Add(TextBox, "box", "", {10, 10, 60, 12});
        form.Add(CommandButton, "button", "Button", {10, 40, 60, 14});
    }
    RecordingForm form;
};

TEST_F(Showing, ActivatesOncePerShowing)
{
    form.Make();
    for (int i = 0; i < 2; ++i) {
        form.then = [&](const std::string&) { form.view->Hide(); };
        EXPECT_TRUE(form.view->ShowModal());
        EXPECT_EQ(form.Take(), Reports{"activated"});
    }
}

TEST_F(Showing, IsPaintedAfterTheEventsThatWaitHaveRun)
{
    form.Make();
    bool painted = false;
    form.then = [&](const std::string&) {
        form.view->PumpEvents();
        painted = QtUser::Window()->windowHandle()->isExposed();
        form.view->Hide();
    };
    EXPECT_TRUE(form.view->ShowModal());
    EXPECT_TRUE(painted);
}

TEST_F(Showing, KeepsWhatWasEntered)
{
    form.Show([&] {
        QtUser::Focus("box");
        QtUser::Type("kept");
    });
    form.Change(2, [](FormControl& control) { control.caption = "Changed while hidden"; });
    form.Show([&] {
        EXPECT_EQ(QtUser::Find<QLineEdit>("box")->text(), "kept");
        EXPECT_EQ(QtUser::Find<QPushButton>("button")->text(), "Changed while hidden");
    });
}

TEST_F(Showing, TheCloseBoxIsReportedAndNothingElse)
{
    form.Show([&] {
        QtUser::Close();
        EXPECT_EQ(form.Take(), Reports{"closed"});
        EXPECT_TRUE(QtUser::Window()->isVisible()) << "it stays up until the form hides it";
    });
}

TEST_F(Showing, HidingOutsideOfAShowingDoesNothing)
{
    form.Make();
    form.view->Hide();
    form.Show([] {});
    form.view->Hide();
    form.Show([] {});
}

TEST_F(Showing, AFormThatIsUpCannotBeShownAgain)
{
    form.Show([&] { EXPECT_FALSE(form.view->ShowModal()); });
}

TEST_F(Showing, AFormOverAnotherTakesEverything)
{
    RecordingForm upper;
    upper.Add(CommandButton, "inner", "Inner", {10, 40, 60, 14});
    upper.Make();
    form.Make();
    form.then = [&](const std::string& report) {
        if (report == "clicked button") {
            EXPECT_TRUE(upper.view->ShowModal());
            form.reports.push_back("upper is gone");
        }
    };
    form.Show([&] {
        QWidget* const below = QtUser::Window();
        WhenShown([&] {
            EXPECT_EQ(QtUser::Window()->objectName(), "form");
            EXPECT_NE(QtUser::Window(), below);
            EXPECT_EQ(QtUser::Window()->windowHandle()->transientParent(), below->windowHandle());
            EXPECT_LT((QtUser::Window()->geometry().center() - below->geometry().center()).manhattanLength(), 6)
                << "it opens in the middle of its owner";
            QTest::mouseClick(below->windowHandle(), Qt::LeftButton, {}, QPoint(20, 20));
            EXPECT_EQ(form.reports.back(), "clicked button") << "the lower form is out of reach";
            QtUser::Press("inner");
            upper.view->Hide();
        });
        QtUser::Press("button");
        EXPECT_EQ(upper.Take(), (Reports{"activated", "clicked inner"}));
        EXPECT_EQ(form.Take(), (Reports{"left box", "clicked button", "upper is gone"}));
        EXPECT_EQ(QtUser::Window(), below);
    });
}

TEST_F(Showing, BothFormsGoWhenTheLowerOneIsHiddenToo)
{
    RecordingForm upper;
    upper.Make();
    form.Make();
    form.then = [&](const std::string& report) {
        if (report == "clicked button")
            upper.view->ShowModal();
    };
    bool returned = false;
    WhenShown([&] {
        WhenShown([&] {
            form.view->Hide();
            EXPECT_FALSE(returned);
            upper.view->Hide();
        });
        QtUser::Press("button");
        returned = true;
    });
    EXPECT_TRUE(form.view->ShowModal());
    EXPECT_TRUE(returned) << "the report under way returned first";
    EXPECT_EQ(QtUser::Window(), nullptr);
}

TEST_F(Showing, AProgressFormThatRefusesToCloseStaysThroughoutItsRun)
{
    const std::size_t bar = form.controls.size();
    form.Add(ProgressBar, "bar", "", {10, 60, 100, 12});
    form.Make();
    form.then = [&](const std::string& report) {
        if (report != "activated")
            return;
        for (int i = 1; i <= 3; ++i) {
            form.Change(bar, [&](FormControl& control) { control.value = i; });
            QtUser::Window()->close();
            if (i == 1)
                std::raise(SIGTERM);
            form.view->PumpEvents();
            EXPECT_TRUE(QtUser::Window()->isVisible());
        }
        form.view->Hide();
    };
    EXPECT_TRUE(form.view->ShowModal());
    EXPECT_EQ(form.Take(), (Reports{"activated", "closed", "closed", "closed", "closed"}));
}

TEST_F(Showing, SignalsCloseTheFrontWindow)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto before = std::signal(signal, SIG_DFL); // the tests may run under nohup
        form.Make();
        form.then = [&](const std::string& report) {
            if (report == "activated")
                std::raise(signal);
            else
                form.view->Hide();
        };
        EXPECT_TRUE(form.view->ShowModal());
        EXPECT_EQ(form.Take(), (Reports{"activated", "closed"}));
        std::signal(signal, before);
    }
}

TEST_F(Showing, AHangupThatWasIgnoredBeforeStaysIgnored)
{
    const auto before = std::signal(SIGHUP, SIG_IGN);
    form.Show([&] {
        std::raise(SIGHUP);
        QTest::qWait(50);
        EXPECT_EQ(form.Take(), Reports{});
    });
    EXPECT_EQ(std::signal(SIGHUP, before), SIG_IGN);
}

std::string s_heard;

void Hear(int)
{
    s_heard += "heard";
}

TEST_F(Showing, SignalsAreTheProgramsOwnBetweenWindows)
{
    std::signal(SIGINT, Hear);
    form.Show([] {});
    EXPECT_EQ(s_heard, "");
    std::raise(SIGINT);
    EXPECT_EQ(std::exchange(s_heard, ""), "heard");
    form.Show([] { std::raise(SIGINT); }); // the window goes before it noticed
    EXPECT_EQ(std::exchange(s_heard, ""), "heard") << "no signal is lost";
    std::signal(SIGINT, SIG_DFL);
}

TEST_F(Showing, ASecondSignalEndsAProcessThatHangs)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            form.Make();
            form.then = [](const std::string&) {
                std::raise(SIGINT);
                std::raise(SIGINT);
            };
            form.view->ShowModal();
        },
        testing::KilledBySignal(SIGINT), "");
}

TEST_F(Showing, ASecondSignalEndsAProcessWhoseWindowRefusesToClose)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            form.Make();
            form.then = [&](const std::string& report) {
                if (report != "activated")
                    return;
                std::raise(SIGINT);
                form.view->PumpEvents();
                std::raise(SIGTERM);
            };
            form.view->ShowModal();
        },
        testing::KilledBySignal(SIGTERM), "");
}

TEST_F(Showing, IsAtRestWhileNobodyTouchesIt)
{
    form.Show([&] {
        QtUser::Focus("button");
        QTest::qWait(700);
        int awakenings = 0;
        const auto counting = QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                                               [&] { ++awakenings; });
        QEventLoop loop;
        QTimer::singleShot(1000, &loop, [&] { loop.exit(); });
        loop.exec();
        QObject::disconnect(counting);
        EXPECT_LE(awakenings, 2) << "the end of this wait, and what comes before it";
    });
}

} // namespace
} // namespace sm::qt
