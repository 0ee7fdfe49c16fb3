// SPDX-License-Identifier: GPL-3.0-or-later
// How windows come and go.
#include "RecordingForm.h"

#include <stdexcept>

namespace sm::windows {
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

/// A window of the host's, with a field that has the keyboard.
class HostWindow {
public:
    HostWindow()
        : m_window(CreateWindowW(L"STATIC", L"host", WS_VISIBLE | WS_OVERLAPPEDWINDOW, 100, 80, 600, 400, nullptr,
                                 nullptr, nullptr, nullptr)),
          m_field(CreateWindowW(L"EDIT", L"", WS_VISIBLE | WS_CHILD, 0, 0, 50, 20, m_window, nullptr, nullptr, nullptr))
    {
        SetForegroundWindow(m_window);
        SetFocus(m_field);
    }
    ~HostWindow() { DestroyWindow(m_window); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    [[nodiscard]] HWND Window() const { return m_window; }
    [[nodiscard]] HWND Field() const { return m_field; }

private:
    HWND m_window, m_field;
};

POINT MiddleOf(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

TEST_F(Showing, ActivatesOncePerShowing)
{
    form.Make();
    for (int i = 0; i < 2; ++i) {
        form.then = [&](const std::string&) { form.view->Hide(); };
        EXPECT_TRUE(form.view->ShowModal());
        EXPECT_EQ(form.Take(), Reports{"activated"});
    }
}

TEST_F(Showing, KeepsWhatWasEntered)
{
    form.Show([&] { form.user.Type("box", "kept"); });
    form.Change(2, [](FormControl& control) { control.caption = "Changed while hidden"; });
    form.Show([&] {
        EXPECT_EQ(form.user.Text("box"), "kept");
        EXPECT_EQ(form.user.Text("button"), "Changed while hidden");
    });
}

TEST_F(Showing, TheCloseBoxIsReportedAndNothingElse)
{
    form.Show([&] {
        form.user.Close();
        EXPECT_EQ(form.Take(), Reports{"closed"});
        EXPECT_NE(TheUiThread().Titled(L"A form"), nullptr) << "it stays up until the form hides it";
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
    form.Show([&] { TheUiThread().Run([&] { EXPECT_FALSE(form.view->ShowModal()); }); });
}

TEST_F(Showing, TheHostWaitsAndGetsTheKeyboardBack)
{
    const HostWindow host;
    ASSERT_EQ(GetFocus(), host.Field());
    form.owner = host.Field(); // some window of the host's
    form.Show([&] {
        EXPECT_FALSE(IsWindowEnabled(host.Window()));
        EXPECT_EQ(GetWindow(form.user.Window(), GW_OWNER), host.Window());
        const POINT inner = MiddleOf(form.user.Window()), outer = MiddleOf(host.Window());
        EXPECT_LE(std::abs(inner.x - outer.x) + std::abs(inner.y - outer.y), 4) << "in the middle of its owner";
        EXPECT_EQ(form.user.Focused(), "box");
    });
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
    EXPECT_EQ(GetFocus(), host.Field());
}

TEST_F(Showing, AHostThatWasDisabledStaysSo)
{
    const HostWindow host;
    form.owner = host.Window();
    EnableWindow(host.Window(), FALSE);
    form.Show([] {});
    EXPECT_FALSE(IsWindowEnabled(host.Window()));
}

TEST_F(Showing, AHostThatIsGoneIsNoHost)
{
    {
        const HostWindow host;
        form.owner = host.Window();
    }
    form.Show([&] { EXPECT_EQ(GetWindow(form.user.Window(), GW_OWNER), nullptr); });
}

TEST_F(Showing, AFormOverAnotherTakesEverything)
{
    RecordingForm upper;
    upper.controls[0].caption = "Upper";
    upper.Add(CommandButton, "inner", "Inner", {10, 40, 60, 14});
    form.Make();
    upper.view = form.toolkit->MakeView(upper);
    form.then = [&](const std::string& report) {
        if (report == "clicked button") {
            EXPECT_TRUE(upper.view->ShowModal());
            form.Note("upper is gone");
        }
    };
    form.Show([&] {
        form.user.Focus("button");
        form.Take();
        form.user.Click("button");
        EXPECT_EQ(GetWindow(upper.user.Window(), GW_OWNER), form.user.Window());
        EXPECT_FALSE(IsWindowEnabled(form.user.Window())) << "the lower form is out of reach";
        upper.user.Click("inner");
        EXPECT_EQ(upper.Take(), (Reports{"activated", "clicked inner"}));
        TheUiThread().Run([&] { upper.view->Hide(); });
        TheUiThread().Rest();
        EXPECT_EQ(form.Take(), (Reports{"clicked button", "upper is gone"}));
        EXPECT_TRUE(IsWindowEnabled(form.user.Window()));
        EXPECT_EQ(form.user.Focused(), "button") << "where the keyboard was";
    });
}

TEST_F(Showing, BothFormsGoWhenTheLowerOneIsHiddenToo)
{
    const HostWindow host;
    form.owner = host.Window();
    RecordingForm upper;
    upper.controls[0].caption = "Upper";
    form.Make();
    upper.view = form.toolkit->MakeView(upper);
    bool hasReturned = false;
    form.then = [&](const std::string& report) {
        if (report == "clicked button") {
            upper.view->ShowModal();
            hasReturned = true;
        }
    };
    WhileUserPlays(
        [&] {
            form.user.Click("button");
            static_cast<void>(upper.user.Window());
            TheUiThread().Run([&] {
                form.view->Hide();
                EXPECT_FALSE(hasReturned);
                EXPECT_FALSE(IsWindowEnabled(host.Window())) << "while the upper form is up";
                upper.view->Hide();
            });
        },
        [&] { EXPECT_TRUE(form.view->ShowModal()); });
    EXPECT_TRUE(hasReturned) << "the report under way returned first";
    EXPECT_EQ(TheUiThread().Front(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(Showing, AProgressFormThatRefusesToCloseStaysThroughoutItsRun)
{
    const std::size_t bar = form.controls.size();
    form.Add(ProgressBar, "bar", "", {10, 60, 100, 12});
    form.Make();
    form.then = [&](const std::string& report) {
        if (report != "activated")
            return;
        const HWND window = TheUiThread().Titled(L"A form");
        for (int i = 1; i <= 3; ++i) {
            form.controls[bar].value = i;
            form.view->ControlChanged(bar);
            PostMessageW(window, WM_CLOSE, 0, 0);
            form.view->PumpEvents();
            EXPECT_TRUE(IsWindowVisible(window));
            EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE)) << "it has been painted";
        }
        form.view->Hide();
    };
    EXPECT_TRUE(form.view->ShowModal());
    EXPECT_EQ(form.Take(), (Reports{"activated", "closed", "closed", "closed"}));
}

TEST_F(Showing, AnOrderToEndTheProgramIsPassedOn)
{
    form.Make();
    form.then = [&](const std::string&) {
        PostQuitMessage(7);
        form.view->PumpEvents();
    };
    EXPECT_TRUE(form.view->ShowModal());
    EXPECT_EQ(TheUiThread().Front(), nullptr);
    MSG message = {};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(Showing, NothingThatAFormThrowsCrossesTheWindows)
{
    form.Make();
    form.then = [&](const std::string& report) {
        if (report == "closed")
            return form.view->Hide();
        PostMessageW(TheUiThread().Titled(L"A form"), WM_CLOSE, 0, 0);
        throw std::runtime_error("not to be let out");
    };
    EXPECT_TRUE(form.view->ShowModal());
    EXPECT_EQ(form.Take(), (Reports{"activated", "closed"}));
}

TEST_F(Showing, ViewsLeaveNothingBehind)
{
    const auto count = [] { return GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS); };
    form.Make();
    form.view.reset();
    const DWORD before = count();
    DWORD handles = 0, handlesBefore = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handlesBefore);
    for (int i = 0; i < 50; ++i) {
        form.Make();
        form.view.reset();
    }
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    EXPECT_LE(handles, handlesBefore + 2);
    EXPECT_LE(count(), before);
    EXPECT_EQ(FindWindowW(L"#32770", L"A form"), nullptr);
}

} // namespace
} // namespace sm::windows
