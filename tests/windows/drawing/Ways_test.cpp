// SPDX-License-Identifier: GPL-3.0-or-later
// The ways from a form to another drawing and to the marks: buttons, keys, files that are dropped.
#include "../forms/RecordingForm.h"
#include "../screens/Png.h"
#include "Folders.h"
#include "beside/SheetsWindow.h"
#include "beside/StartWindow.h"
#include "win32/Company.h"
#include "windows/automation/WideText.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstring>
#include <thread>

#include <commctrl.h>
#include <shlobj.h>

namespace sm::win32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using windows::TheUiThread;
using Said = std::vector<std::string>;

class SheetsWithDrawings final : public beside::ISheetList, public beside::IDrawings {
public:
    Said said;
    [[nodiscard]] bool StandsBeside(const std::string& form) const override { return form == "form"; }
    beside::SheetsNow Now(const std::vector<FormControl>&) override { return {"One sheet.", false, {}}; }
    void MakeCurrent(const std::string&) override {}
    std::string Tick(const std::string&, bool) override { return {}; }
    void TickAll() override {}
    std::string TickMeant(const std::string&) override { return {}; }
    beside::IDrawings* Drawings() override { return this; }
    std::vector<std::string> Recent() override { return {"C:\\plans\\a & b.dxf", "C:\\plans\\c.dwg"}; }
    void OpenNext(const std::string& path) override { said.push_back("open " + path); }
    [[nodiscard]] bool CanEditMarks() const override { return true; }
    void EditMarksNext() override { said.emplace_back("marks"); }
};

class AnsweringDesktop final : public IDesktop {
public:
    std::optional<std::string> file = "C:\\plans\\asked.dxf";
    MessageAnswer answer = MessageAnswer::Cancel;
    Said said;
    MessageAnswer ShowMessage(const Message& message) override
    {
        said.push_back(message.text);
        return answer;
    }
    void Beep() override { said.emplace_back("beep"); }
    std::optional<std::string> AskOpenFile(const FileDialog& dialog) override
    {
        said.push_back(dialog.title);
        return file;
    }
    std::optional<std::string> AskSaveFile(const FileDialog&) override { return std::nullopt; }
    std::optional<std::int32_t> AskColor(std::int32_t) override { return std::nullopt; }
    bool OpenDocument(const std::string&) override { return false; }
    bool ShowHelp(const std::string&, std::int32_t) override { return false; }
};

/// As the system brings files to a window that they are dropped on.
void DropOn(HWND window, const std::vector<std::wstring>& paths)
{
    std::wstring names;
    for (const std::wstring& path : paths)
        names += path + L'\0';
    names += L'\0';
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
    auto* const head = static_cast<DROPFILES*>(GlobalLock(memory));
    head->pFiles = sizeof(DROPFILES);
    head->fWide = TRUE;
    std::memcpy(head + 1, names.data(), names.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    TheUiThread().Rest();
    TheUiThread().Rest(); // what it led to was posted, too
}

class WaysBeside : public ::testing::Test {
protected:
    WaysBeside()
    {
        form.Add(ControlKind::TextBox, "txt", "", {10, 10, 60, 12});
        form.toolkit = windows::CreateWin32Toolkit([] { return HWND(); }, company.get());
        form.Make();
        company->StandBeside(&sheets);
    }
    static HWND Beside() { return FindWindowW(SheetsWindow::kClass, nullptr); }
    static HWND Get(SheetsWindow::Control control) { return GetDlgItem(Beside(), control); }
    static void Click(SheetsWindow::Control control)
    {
        PostMessageW(Get(control), BM_CLICK, 0, 0);
        TheUiThread().Rest();
        TheUiThread().Rest();
    }
    static void Key(HWND window, WPARAM key)
    {
        PostMessageW(window, WM_KEYDOWN, key, 1);
        TheUiThread().Rest();
    }

    AnsweringDesktop desktop;
    std::unique_ptr<IWin32Company> company = CreateCompany(desktop);
    SheetsWithDrawings sheets;
    windows::RecordingForm form;
};

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
