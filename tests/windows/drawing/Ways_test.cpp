// SPDX-License-Identifier: GPL-3.0-or-later
// The ways from a form to another drawing and to the marks: buttons, keys, files that are dropped.
#include "../screens/Png.h"
#include "Folders.h"
#include "WaysStand.h"
#include "beside/StartWindow.h"
#include "windows/automation/WideText.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include <commctrl.h>

namespace sm::win32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(WaysBeside, TheButtonAsksForAnotherDrawingAndClosesTheForm)
{
    form.Show([&] {
        TheUiThread().Rest();
        TheUiThread().Run([&] {
            RedrawWindow(Beside(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
            EXPECT_TRUE(windows::SavePicture(Beside(), windows::Wide(PictureFolder() + "/sheets-ways.png")));
        });
        desktop.file.reset();
        form.Take();
        Click(SheetsWindow::kOpen);
        EXPECT_THAT(sheets.said, IsEmpty());
        EXPECT_THAT(form.Take(), IsEmpty()) << "nothing was chosen";
        desktop.file = "C:\\plans\\asked.dxf";
        Click(SheetsWindow::kOpen);
        EXPECT_THAT(form.Take(), ElementsAre("closed"));
    });
    EXPECT_THAT(sheets.said, ElementsAre("open C:\\plans\\asked.dxf"));
    EXPECT_THAT(desktop.said, ElementsAre("Open Drawing", "Open Drawing"));
}

TEST_F(WaysBeside, RecentDrawingsStandInTheMenuOfTheButton)
{
    form.Show([&] {
        RECT room = {};
        GetClientRect(Get(SheetsWindow::kOpen), &room);
        const LPARAM arrow = MAKELPARAM(room.right - 5, room.bottom / 2);
        PostMessageW(Get(SheetsWindow::kOpen), WM_LBUTTONDOWN, MK_LBUTTON, arrow);
        for (int i = 0; i < 500 && FindWindowW(L"#32768", nullptr) == nullptr; ++i)
            Sleep(10);
        EXPECT_NE(FindWindowW(L"#32768", nullptr), nullptr) << "the menu is open";
        form.Take();
        for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_RETURN})
            PostMessageW(Beside(), WM_KEYDOWN, key, 1);
        TheUiThread().Rest();
        TheUiThread().Rest();
        EXPECT_THAT(form.Take(), ElementsAre("closed"));
    });
    EXPECT_THAT(sheets.said, ElementsAre("open C:\\plans\\c.dwg"));
}

TEST_F(WaysBeside, MarksAreEditedOnceTheFormIsClosed)
{
    form.Show([&] {
        form.Take();
        Click(SheetsWindow::kEditMarks);
        EXPECT_THAT(form.Take(), ElementsAre("closed"));
    });
    EXPECT_THAT(sheets.said, ElementsAre("marks"));
}

TEST_F(WaysBeside, ADrawingThatIsDroppedIsOpened)
{
    form.Show([&] {
        DropOn(form.user.Window(), {L"C:\\plans\\readme.txt"});
        DropOn(form.user.Window(), {L"C:\\plans\\a.dxf", L"C:\\plans\\b.dxf"});
        EXPECT_THAT(sheets.said, IsEmpty());
        EXPECT_THAT(desktop.said, ElementsAre("beep", "beep"));
        DropOn(form.user.Window(), {L"C:\\plans\\B.DXF"});
        EXPECT_THAT(sheets.said, ElementsAre("open C:\\plans\\B.DXF"));
        DropOn(Beside(), {L"C:\\pläne\\ф.dwg"});
    });
    EXPECT_THAT(sheets.said, ElementsAre("open C:\\plans\\B.DXF", "open C:\\pläne\\ф.dwg"));
}

TEST_F(WaysBeside, EntriesAreDroppedAfterAQuestionAlone)
{
    form.Show([&] {
        form.user.Type("txt", "x");
        form.Take();
        DropOn(Beside(), {L"C:\\b.dxf"});
        EXPECT_THAT(sheets.said, IsEmpty());
        EXPECT_THAT(form.Take(), testing::Not(testing::Contains("closed")));
        desktop.answer = MessageAnswer::Ok;
        DropOn(Beside(), {L"C:\\b.dxf"});
    });
    EXPECT_THAT(sheets.said, ElementsAre("open C:\\b.dxf"));
    const char* const question = "What was entered here and not confirmed yet is dropped.\r\nOpen\r\nC:\\b.dxf?";
    EXPECT_THAT(desktop.said, ElementsAre(question, question));
}

class RecentWindow : public ::testing::Test {
protected:
    static HWND Up()
    {
        const HWND window = FindWindowW(StartWindow::kClass, nullptr);
        return window != nullptr && IsWindowVisible(window) != FALSE ? window : nullptr;
    }
    /// What the user of the window has chosen.
    std::optional<std::string> Choose(const std::function<void(HWND)>& user)
    {
        TheUiThread();
        std::atomic<bool> isPlayed = false;
        std::thread thread([&] {
            for (int i = 0; i < 1000 && Up() == nullptr; ++i)
                Sleep(10);
            TheUiThread().Rest();
            user(Up());
            isPlayed = true;
        });
        const auto chosen = company->ChooseDrawing({"C:\\plans\\a.dxf", "C:\\plans\\deep\\b.dwg"});
        for (MSG message = {}; !isPlayed; Sleep(1)) // the user may wait for what was posted
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
                DispatchMessageW(&message);
        thread.join();
        return chosen;
    }
    AnsweringDesktop desktop;
    std::unique_ptr<IWin32Company> company = CreateCompany(desktop);
};

TEST_F(RecentWindow, OpensTheRowThatIsChosenOrOneThatIsDropped)
{
    EXPECT_EQ(Choose([](HWND window) {
                  const HWND list = GetDlgItem(window, StartWindow::kRecent);
                  TheUiThread().Run([&] {
                      RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
                      EXPECT_TRUE(
                          windows::SavePicture(window, windows::Wide(PictureFolder() + "/recent-drawings.png")));
                  });
                  PostMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
                  PostMessageW(list, WM_KEYDOWN, VK_RETURN, 1);
              }),
              "C:\\plans\\deep\\b.dwg");
    EXPECT_EQ(Choose([](HWND window) {
                  DropOn(window, {L"C:\\plans\\a.txt"});
                  EXPECT_NE(Up(), nullptr);
                  DropOn(window, {L"C:\\plans\\new.dwg"});
              }),
              "C:\\plans\\new.dwg");
    EXPECT_EQ(Choose([](HWND window) { PostMessageW(GetDlgItem(window, StartWindow::kOther), BM_CLICK, 0, 0); }),
              "C:\\plans\\asked.dxf");
    EXPECT_EQ(
        Choose([](HWND window) { PostMessageW(GetDlgItem(window, StartWindow::kRecent), WM_KEYDOWN, VK_ESCAPE, 1); }),
        std::nullopt);
}

TEST_F(RecentWindow, WithoutARecentDrawingOneIsAskedFor)
{
    EXPECT_EQ(company->ChooseDrawing({}), "C:\\plans\\asked.dxf");
    EXPECT_THAT(desktop.said, ElementsAre("Open Drawing"));
}

} // namespace
} // namespace sm::win32
