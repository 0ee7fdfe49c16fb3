// SPDX-License-Identifier: GPL-3.0-or-later
// A form with a list of sheets beside it that knows the ways to other drawings, and files that are dropped on it.
#pragma once

#include "../forms/RecordingForm.h"
#include "beside/SheetsWindow.h"
#include "win32/Company.h"

#include <cstring>

#include <shlobj.h>

namespace sm::win32 {

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
    [[nodiscard]] beside::FileList Files() const override { return {"list", "row", "browse"}; }
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
inline void DropOn(HWND window, const std::vector<std::wstring>& paths, POINT at = {})
{
    std::wstring names;
    for (const std::wstring& path : paths)
        names += path + L'\0';
    names += L'\0';
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
    auto* const head = static_cast<DROPFILES*>(GlobalLock(memory));
    head->pFiles = sizeof(DROPFILES);
    head->pt = at;
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

} // namespace sm::win32
