// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/PickControls.h"

#include "scene/PickTexts.h"
#include "windows/automation/WideText.h"
#include "windows/system/OwnModule.h"

#include <algorithm>

#include <commctrl.h>

namespace sm::win32 {
namespace {

constexpr PickControl kButtons[] = {kZoomIn, kZoomOut, kZoomAll, kZoomFrame, kSnaps, kDark, kKeys};
constexpr PickControl kPointLine[] = {kPrompt, kEntry, kPlace, kHint}, kMarkLine[] = {kMarks, kEditMark, kMarkHint};
constexpr int kMostShown = 12; // marks in the open list

std::wstring KeysText()
{
    std::wstring text;
    for (const auto& [keys, meaning] : scene::WindowKeys())
        text += windows::Wide(keys) + L":  " + windows::Wide(meaning) + L"\r\n";
    text.resize(text.size() - 2);
    return text;
}

} // namespace

PickControls::PickControls(HWND window) : m_window(window)
{
    const DWORD push = WS_TABSTOP | BS_PUSHBUTTON, toggle = WS_TABSTOP | BS_AUTOCHECKBOX | BS_PUSHLIKE;
    Add(L"BUTTON", L"Zoom &In", push, kZoomIn);
    Add(L"BUTTON", L"Zoom &Out", push, kZoomOut);
    Add(L"BUTTON", L"Zoom &All", push, kZoomAll);
    Add(L"BUTTON", L"&Window", toggle, kZoomFrame);
    Add(L"BUTTON", L"Object &Snaps", toggle, kSnaps);
    Add(L"BUTTON", L"&Dark", toggle, kDark);
    Add(L"BUTTON", L"&Keys", toggle, kKeys);
    Add(WC_TABCONTROLW, L"Layouts", WS_TABSTOP | TCS_FOCUSNEVER | TCS_TOOLTIPS, kTabs);
    Add(L"STATIC", L"", SS_LEFTNOWORDWRAP | SS_NOPREFIX, kPrompt);
    Add(L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, kEntry, WS_EX_CLIENTEDGE);
    Add(L"STATIC", L"", SS_LEFTNOWORDWRAP | SS_NOPREFIX, kPlace);
    Add(L"STATIC", L"", SS_RIGHT | SS_NOPREFIX, kHint);
    Add(L"STATIC", KeysText().c_str(), SS_LEFT | SS_NOPREFIX | WS_BORDER, kKeysText);
    Add(L"COMBOBOX", L"Marks", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kMarks);
    Add(L"BUTTON", L"&Edit...", push, kEditMark);
    Add(L"STATIC", L"", SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_ENDELLIPSIS, kMarkHint);
    SendMessageW(Get(kMarks), CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(L"No mark is chosen"));
    ShowWindow(Get(kKeysText), SW_HIDE);
    ShowMarkLine(false);
    Tick(kSnaps, true);
}

HWND PickControls::Add(const wchar_t* kind, const wchar_t* text, DWORD style, PickControl control, DWORD more) const
{
    return CreateWindowExW(more, kind, text, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, m_window,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), windows::OwnModule(), nullptr);
}

bool PickControls::IsTicked(PickControl control) const
{
    return SendMessageW(Get(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void PickControls::Tick(PickControl control, bool isTicked) const
{
    SendMessageW(Get(control), BM_SETCHECK, isTicked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void PickControls::SetTabs(const std::vector<std::string>& names, std::size_t current) const
{
    const HWND tabs = Get(kTabs);
    TabCtrl_DeleteAllItems(tabs);
    int count = 0;
    for (const std::string& name : names) {
        std::wstring caption;
        for (const wchar_t letter : windows::Wide(name))
            caption += letter == L'&' ? std::wstring(L"&&") : std::wstring(1, letter);
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(count++), reinterpret_cast<LPARAM>(&item));
    }
    TurnTo(static_cast<int>(current));
}

int PickControls::Tab() const
{
    return static_cast<int>(SendMessageW(Get(kTabs), TCM_GETCURSEL, 0, 0));
}

int PickControls::TabCount() const
{
    return static_cast<int>(SendMessageW(Get(kTabs), TCM_GETITEMCOUNT, 0, 0));
}

void PickControls::TurnTo(int tab) const
{
    SendMessageW(Get(kTabs), TCM_SETCURSEL, static_cast<WPARAM>(tab), 0);
}

void PickControls::ShowMarkLine(bool isWanted)
{
    for (const PickControl control : kPointLine)
        ShowWindow(Get(control), isWanted ? SW_HIDE : SW_SHOWNA);
    for (const PickControl control : kMarkLine)
        ShowWindow(Get(control), isWanted ? SW_SHOWNA : SW_HIDE);
}

void PickControls::ListMarks(const std::vector<std::string>& titles) const
{
    SendMessageW(Get(kMarks), CB_RESETCONTENT, 0, 0);
    for (const std::string& title : titles)
        SendMessageW(Get(kMarks), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(windows::Wide(title).c_str()));
}

void PickControls::ChooseMark(std::optional<std::size_t> mark) const
{
    SendMessageW(Get(kMarks), CB_SETCURSEL, mark ? *mark : static_cast<WPARAM>(-1), 0);
    Enable(kEditMark, mark.has_value());
}

std::optional<std::size_t> PickControls::ChosenMark() const
{
    const LRESULT chosen = SendMessageW(Get(kMarks), CB_GETCURSEL, 0, 0);
    return chosen == CB_ERR ? std::nullopt : std::optional(static_cast<std::size_t>(chosen));
}

void PickControls::UseDots(int dots)
{
    m_dots = dots;
    m_font.Use(m_window, dots);
}

SIZE PickControls::SizeOf(const std::wstring& text) const
{
    const HDC canvas = GetDC(m_window);
    const HGDIOBJ before = SelectObject(canvas, m_font.Handle());
    RECT room = {};
    DrawTextW(canvas, text.c_str(), -1, &room, DT_CALCRECT | DT_NOPREFIX);
    SelectObject(canvas, before);
    ReleaseDC(m_window, canvas);
    return {room.right, room.bottom};
}

int PickControls::WidthOf(PickControl control) const
{
    return SizeOf(windows::Wide(Text(control))).cx;
}

/// The right edge.
int PickControls::Place(PickControl control, int left, int top, int width, int height) const
{
    MoveWindow(Get(control), left, top, width, height, TRUE);
    return left + width;
}

void PickControls::PlaceLine(int top, int line, int width) const
{
    const int between = Between(), textTop = top + between;
    const SIZE letter = SizeOf(L"0");
    int x = Place(kPrompt, 2 * between, textTop, WidthOf(kPrompt), letter.cy) + between;
    x = Place(kEntry, x, top, 24 * letter.cx, line) + 2 * between;
    x = Place(kPlace, x, textTop, 28 * letter.cx, letter.cy) + between;
    const int hint = std::min<int>(34 * letter.cx, std::max<int>(width - x - 2 * between, 0));
    Place(kHint, width - hint - 2 * between, textTop, hint, letter.cy);
}

/// A list's height is that of the list once it is open.
void PickControls::PlaceMarkLine(int top, int line, int width) const
{
    const int between = Between();
    const SIZE letter = SizeOf(L"0");
    int x = Place(kMarks, 2 * between, top, 36 * letter.cx, line + kMostShown * letter.cy) + between;
    x = Place(kEditMark, x, top, WidthOf(kEditMark) + 4 * between, line) + 2 * between;
    Place(kMarkHint, x, top + between, std::max(width - x - 2 * between, 0), letter.cy);
}

RECT PickControls::LayOut()
{
    RECT room = {};
    GetClientRect(m_window, &room);
    const int between = Between();
    const SIZE letter = SizeOf(L"0");
    const int button = letter.cy + 2 * between, line = letter.cy + 2 * between;
    int x = between;
    for (const PickControl control : kButtons)
        x = Place(control, x, between, WidthOf(control) + 4 * between, button) + between;
    const int lineTop = std::max<int>(room.bottom - line - between, 0);
    const int tabsTop = std::max(lineTop - line - between, 0);
    Place(kTabs, 0, tabsTop, room.right, line + between / 2);
    PlaceLine(lineTop, line, room.right);
    PlaceMarkLine(lineTop, line, room.right);
    const int top = button + 2 * between;
    const SIZE keys = SizeOf(KeysText());
    Place(kKeysText, 3 * between, top + 3 * between, keys.cx + 4 * between, keys.cy + 2 * between);
    return {0, top, room.right, std::max(tabsTop, top)};
}

} // namespace sm::win32
