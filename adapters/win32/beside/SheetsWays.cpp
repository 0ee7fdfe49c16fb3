// SPDX-License-Identifier: GPL-3.0-or-later
// The ways from the list of sheets to other drawings and to the marks.
#include "beside/SheetsWindow.h"
#include "window/DroppedFiles.h"
#include "windows/automation/WideText.h"

#include <memory>

#include <commctrl.h>
#include <shellapi.h>

namespace sm::win32 {
namespace {

constexpr UINT kFirstRecent = 1; // of the menu's items

/// "&1  plan.dxf", with the folder at the right.
std::wstring RecentCaption(std::size_t number, const std::string& path)
{
    const std::wstring whole = windows::Wide(path);
    const std::size_t slash = whole.find_last_of(L"\\/");
    std::wstring caption = number < 10 ? L"&" + std::to_wstring(number) + L"  " : std::wstring();
    for (const wchar_t letter : slash == std::wstring::npos ? whole : whole.substr(slash + 1))
        caption += letter == L'&' ? std::wstring(L"&&") : std::wstring(1, letter);
    return slash == std::wstring::npos ? caption : caption + L"\t" + whole.substr(0, slash);
}

} // namespace

void SheetsWindow::MakeWays()
{
    beside::IDrawings* const drawings = m_sheets.Drawings();
    if (drawings == nullptr)
        return;
    Add(L"BUTTON", L"&Open Drawing...", WS_TABSTOP | BS_SPLITBUTTON, kOpen);
    if (drawings->CanEditMarks())
        Add(L"BUTTON", L"&Edit Marks...", WS_TABSTOP | BS_PUSHBUTTON, kEditMarks);
    DragAcceptFiles(Handle(), TRUE);
}

void SheetsWindow::OnWay(int control)
{
    if (control == kOpen && onOpen)
        onOpen(std::nullopt);
    if (control == kEditMarks && onMarks)
        onMarks();
}

void SheetsWindow::OnDropped(WPARAM drop)
{
    const std::vector<std::string> paths = TakeDropped(drop);
    if (onDrop && IsFormFree())
        onDrop(paths);
}

void SheetsWindow::ShowRecent()
{
    if (m_sheets.Drawings() == nullptr || !IsFormFree())
        return;
    m_recent = m_sheets.Drawings()->Recent();
    const std::unique_ptr<HMENU__, BOOL(WINAPI*)(HMENU)> menu(CreatePopupMenu(), DestroyMenu);
    for (std::size_t i = 0; i < m_recent.size(); ++i)
        AppendMenuW(menu.get(), MF_STRING, kFirstRecent + i, RecentCaption(i + 1, m_recent[i]).c_str());
    if (m_recent.empty())
        AppendMenuW(menu.get(), MF_STRING | MF_GRAYED, 0, L"No other drawing was opened lately");
    RECT button = {};
    GetWindowRect(Get(kOpen), &button);
    TPMPARAMS around = {sizeof around, button};
    const BOOL chosen =
        TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_VERTICAL, button.left, button.bottom, Handle(), &around);
    const auto at = static_cast<std::size_t>(chosen) - kFirstRecent;
    if (chosen > 0 && at < m_recent.size() && onOpen && IsFormFree())
        onOpen(m_recent[at]);
}

} // namespace sm::win32
