// SPDX-License-Identifier: GPL-3.0-or-later
// The list of sheets and the preview that stand beside a form.
#include "../forms/RecordingForm.h"
#include "../screens/Png.h"
#include "Folders.h"
#include "beside/ProgressWindow.h"
#include "beside/SheetsWindow.h"
#include "win32/Company.h"
#include "windows/automation/WideText.h"
#include "windows/system/WindowsSystem.h"

#include <gmock/gmock.h>

#include <commctrl.h>

namespace sm::win32 {
namespace {

using testing::ElementsAre;
using windows::TheUiThread;

/// A page of 297 x 210 mm with a thick line across, and marks.
class LinedPage final : public beside::IPageSource {
public:
    std::atomic<int> wanted = 1, drawn = 0;
    bool Renew() override { return std::exchange(m_known, wanted.load()) != wanted; }
    beside::PreviewPage Draw(render::ICanvas& canvas, const std::atomic<bool>&) override
    {
        render::Path path;
        path.MoveTo({20, 105});
        path.LineTo({277, 105});
        canvas.Stroke(path, {0xFF0000, 20, render::LineCap::Butt, render::LineJoin::Miter});
        ++drawn;
        beside::PageMark stamp{beside::PageMarkKind::Stamp, {148, 150}, {148, 150}, "CHECKED"};
        stamp.size = 15;
        stamp.font = "Helvetica-Bold";
        stamp.justification = 1;
        const beside::PageMark field{beside::PageMarkKind::Field, {200, 20}, {270, 50}, "Approved"};
        return {297, 210, {stamp, field}, wanted == 1 ? "" : "something is amiss"};
    }

private:
    int m_known = 0;
};

class NotedSheets final : public beside::ISheetList {
public:
    LinedPage page;
    std::vector<std::string> said;
    std::vector<beside::SheetRow> rows{
        {"Model", true, true, false}, {"A-101", false, false, true}, {"Übersicht", false, false, true}};
    [[nodiscard]] bool StandsBeside(const std::string& form) const override { return form == "form"; }
    beside::SheetsNow Now(const std::vector<FormControl>&) override { return {"2 sheets become pages.", true, rows}; }
    void MakeCurrent(const std::string& name) override
    {
        said.push_back("current " + name);
        for (beside::SheetRow& row : rows)
            row.isCurrent = row.name == name;
    }
    std::string Tick(const std::string& name, bool isTicked) override
    {
        said.push_back((isTicked ? "ticked " : "unticked ") + name);
        return isTicked ? "" : "one sheet stays";
    }
    void TickAll() override { said.emplace_back("all"); }
    std::string TickMeant(const std::string& words) override
    {
        said.push_back("words " + words);
        return {};
    }
    beside::IPageSource* Page() override { return &page; }
};

class SheetsBeside : public ::testing::Test {
protected:
    SheetsBeside()
    {
        form.Add(ControlKind::CommandButton, "btn", "Press", {10, 10, 60, 14});
        form.toolkit = windows::CreateWin32Toolkit([] { return HWND(); }, company.get());
        form.Make();
        company->StandBeside(&sheets);
    }
    static HWND Beside() { return FindWindowW(SheetsWindow::kClass, nullptr); }
    static HWND Get(SheetsWindow::Control control) { return GetDlgItem(Beside(), control); }
    static std::string Text(SheetsWindow::Control control)
    {
        wchar_t text[300] = {};
        SendMessageW(Get(control), WM_GETTEXT, 300, reinterpret_cast<LPARAM>(text));
        return windows::Utf8(text);
    }
    static void Settle()
    {
        bool isSettled = false;
        for (int i = 0; i < 3000 && !isSettled; ++i, Sleep(10)) {
            TheUiThread().Run([&] {
                auto* const own = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(Beside(), GWLP_USERDATA));
                isSettled = own != nullptr && dynamic_cast<SheetsWindow*>(own)->IsSettled();
            });
        }
        EXPECT_TRUE(isSettled);
        TheUiThread().Rest();
    }
    static void Keep(const std::string& name)
    {
        TheUiThread().Run([&] {
            RedrawWindow(Beside(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
            EXPECT_TRUE(windows::SavePicture(Beside(), windows::Wide(PictureFolder() + "/" + name + ".png")));
        });
    }
    static COLORREF MiddleOfPage()
    {
        COLORREF color = 0;
        TheUiThread().Run([&] {
            const HWND page = FindWindowExW(Beside(), nullptr, DrawingView::kClass, nullptr);
            RECT room = {};
            UpdateWindow(page);
            GetClientRect(page, &room);
            const HDC canvas = GetDC(page);
            color = GetPixel(canvas, room.right / 2, room.bottom / 2);
            ReleaseDC(page, canvas);
        });
        return color;
    }

    std::unique_ptr<IDesktop> desktop = windows::CreateWindowsDesktop([] { return HWND(); });
    std::unique_ptr<IWin32Company> company = CreateCompany(*desktop);
    NotedSheets sheets;
    windows::RecordingForm form;
};

TEST_F(SheetsBeside, ShowTheirRowsAndThePage)
{
    form.Show([&] {
        Settle();
        EXPECT_EQ(Text(SheetsWindow::kHeadline), "2 sheets become pages.");
        EXPECT_EQ(SendMessageW(Get(SheetsWindow::kList), LVM_GETITEMCOUNT, 0, 0), 3);
        EXPECT_EQ(MiddleOfPage(), RGB(0xFF, 0, 0)) << "the line of the page";
        Keep("sheets");
        RECT form_place = {}, place = {};
        GetWindowRect(form.user.Window(), &form_place);
        GetWindowRect(Beside(), &place);
        EXPECT_GE(place.left, form_place.right) << "they stand beside each other";
    });
    EXPECT_EQ(Beside(), nullptr) << "it goes with the form";
}

TEST_F(SheetsBeside, PassOnWhatTheUserDoes)
{
    form.Show([&] {
        Settle();
        SendMessageW(Get(SheetsWindow::kAll), BM_CLICK, 0, 0);
        TheUiThread().Run([&] { ListView_SetItemState(Get(SheetsWindow::kList), 1, LVIS_SELECTED, LVIS_SELECTED); });
        SendMessageW(Get(SheetsWindow::kCurrent), BM_CLICK, 0, 0);
        Settle();
        TheUiThread().Run([&] { ListView_SetCheckState(Get(SheetsWindow::kList), 2, FALSE); });
        Settle();
        EXPECT_EQ(Text(SheetsWindow::kReason), "one sheet stays");
        TheUiThread().Run([&] { SetFocus(Get(SheetsWindow::kWords)); });
        SendMessageW(Get(SheetsWindow::kWords), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"A*"));
        PostMessageW(Get(SheetsWindow::kWords), WM_KEYDOWN, VK_RETURN, 1);
        TheUiThread().Rest();
        Settle();
    });
    EXPECT_THAT(sheets.said, ElementsAre("all", "current A-101", "unticked Übersicht", "words A*"));
}

TEST_F(SheetsBeside, DrawThePageAnewWhenTheFormChanges)
{
    form.Show([&] {
        Settle();
        EXPECT_EQ(sheets.page.drawn, 1);
        sheets.page.wanted = 2;
        form.Change(1, [](FormControl& control) { control.caption = "Other"; });
        Settle();
        EXPECT_EQ(sheets.page.drawn, 2);
        EXPECT_EQ(Text(SheetsWindow::kTrouble), "something is amiss");
        form.Change(1, [](FormControl& control) { control.caption = "Again"; });
        Settle();
        EXPECT_EQ(sheets.page.drawn, 2) << "nothing else comes of it";
    });
}

TEST_F(SheetsBeside, KeepThePageWhileTheFormIsAway)
{
    form.Show([&] { Settle(); });
    form.Show([&] {
        Settle();
        EXPECT_EQ(MiddleOfPage(), RGB(0xFF, 0, 0)) << "nothing has changed, and nothing is drawn anew";
    });
    EXPECT_EQ(sheets.page.drawn, 1);
}

TEST_F(SheetsBeside, StayAwayFromOtherForms)
{
    form.controls.front().name = "frmOther";
    form.Show([&] {
        TheUiThread().Rest();
        EXPECT_EQ(Beside(), nullptr);
    });
}

TEST(Progress, TellsTheSheetAndCanBeCancelled)
{
    const auto desktop = windows::CreateWindowsDesktop([] { return HWND(); });
    const auto company = CreateCompany(*desktop);
    EXPECT_FALSE(company->IsCancelled()) << "nothing is under way";
    company->ShowProgress({"plan.dxf", "A-101", 1, 3});
    const HWND window = FindWindowW(ProgressWindow::kClass, nullptr);
    ASSERT_NE(window, nullptr);
    wchar_t text[100] = {};
    GetWindowTextW(GetDlgItem(window, ProgressWindow::kSheet), text, 100);
    EXPECT_EQ(windows::Utf8(text), "Sheet 1 of 3: A-101");
    EXPECT_FALSE(company->IsCancelled());
    EXPECT_TRUE(windows::SavePicture(window, windows::Wide(PictureFolder() + "/progress.png")));
    PostMessageW(GetDlgItem(window, IDCANCEL), BM_CLICK, 0, 0);
    EXPECT_TRUE(company->IsCancelled());
    company->HideProgress();
    EXPECT_EQ(FindWindowW(ProgressWindow::kClass, nullptr), nullptr);
    EXPECT_FALSE(company->IsCancelled()) << "the next run begins anew";
}

TEST(Progress, GuessesTheTimeLeftOnceASheetIsMade)
{
    EXPECT_EQ(TimeLeft(1, 9, 5000), L"");
    EXPECT_EQ(TimeLeft(2, 3, 5000), L"about 15 seconds left");
    EXPECT_EQ(TimeLeft(2, 14, 30000), L"about 7 minutes left");
}

} // namespace
} // namespace sm::win32
