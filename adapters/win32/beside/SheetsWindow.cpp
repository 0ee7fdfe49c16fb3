// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/SheetsWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"
#include "windows/system/OwnModule.h"

#include <algorithm>
#include <utility>

#include <commctrl.h>

namespace sm::win32 {
namespace {

constexpr int kLeastWidth = 44, kMostWidth = 90; // average characters
constexpr int kLeastHeight = 32;                 // lines
constexpr int kGap = 8;                          // pixels between form and window

SIZE LetterOf(HWND window, HFONT font)
{
    const HDC canvas = GetDC(window);
    const HGDIOBJ before = SelectObject(canvas, font);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(canvas, &metrics);
    SelectObject(canvas, before);
    ReleaseDC(window, canvas);
    return {metrics.tmAveCharWidth, metrics.tmHeight};
}

RECT PlaceOfWindow(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

RECT WorkAreaOf(HWND window)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcWork;
}

} // namespace

SheetsWindow::SheetsWindow(beside::ISheetList& sheets, const IForm& form, HWND owner, PageKeeper* page)
    : m_sheets(sheets), m_form(form), m_owner(owner), m_keeper(page)
{
    const windows::VisualStyles styles;
    Make({kClass, L"Sheets", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN,
          WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT, owner});
    MakeControls();
    MakeWays();
    MakePage();
    OnDots();
}

void SheetsWindow::OnDots()
{
    m_font.Use(Handle(), Dots());
    if (m_page != nullptr)
        m_page->SetFont(m_font.Handle(), Dots());
    LayOut();
}

SheetsWindow::~SheetsWindow()
{
    if (m_keeper != nullptr)
        m_keeper->onPage = nullptr;
    m_page.reset();
    Unmake();
}

HWND SheetsWindow::Add(const wchar_t* kind, const wchar_t* text, DWORD style, Control control, DWORD more) const
{
    return CreateWindowExW(more, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(),
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), windows::OwnModule(), nullptr);
}

void SheetsWindow::MakeControls()
{
    Add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX, kHeadline);
    MakeList();
    Add(L"STATIC", L"&Tick:", SS_LEFT, kTick);
    Add(L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, kWords, WS_EX_CLIENTEDGE);
    SendMessageW(Get(kWords), EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"A-1*, 3..5"));
    Add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX, kReason);
    Add(L"BUTTON", L"&Make Current", WS_TABSTOP | BS_PUSHBUTTON, kCurrent);
    Add(L"BUTTON", L"Tick &All", WS_TABSTOP | BS_PUSHBUTTON, kAll);
    Add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX, kTrouble);
}

void SheetsWindow::MakeList() const
{
    constexpr DWORD kStyle =
        WS_TABSTOP | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS;
    const HWND list = Add(WC_LISTVIEWW, L"Sheets", kStyle, kList, WS_EX_CLIENTEDGE);
    ListView_SetExtendedListViewStyle(list, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    column.cx = 100;
    SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

void SheetsWindow::MakePage()
{
    if (m_keeper == nullptr)
        return;
    m_page = std::make_unique<DrawingView>(Handle(), L"Preview");
    m_page->paintOver = [this](const OverlayCanvas& canvas) {
        if (m_keeper->Page().picture != nullptr)
            PaintPageMarks(canvas, m_keeper->Page().page.marks, m_page->Map());
    };
    m_keeper->onPage = [this] { ShowPage(); };
}

LRESULT SheetsWindow::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    switch (message) {
    case WM_SIZE:
        LayOut();
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wide), HIWORD(wide));
        return 0;
    case WM_NOTIFY:
        OnNotice(*reinterpret_cast<const NMHDR*>(extra));
        return 0;
    case WM_DROPFILES:
        OnDropped(wide);
        return 0;
    case WM_MOUSEWHEEL:
        if (m_page != nullptr)
            m_page->TurnWheel(wide, extra);
        return 0;
    case WM_CLOSE:
        ShowWindow(Handle(), SW_HIDE);
        SetForegroundWindow(m_owner);
        return 0;
    default:
        return ByDefault(message, wide, extra);
    }
}

/// While a message box or another form stands over the form, nothing is to be changed beneath it.
bool SheetsWindow::IsFormFree() const
{
    return IsWindowEnabled(m_owner) != FALSE;
}

void SheetsWindow::OnCommand(int control, int code)
{
    if (control == IDOK && GetFocus() == Get(kWords)) // the Return key
        return TakeWords();
    if (control == IDOK && GetFocus() == Get(kList))
        return MakeCurrent();
    if (control == IDCANCEL)
        return static_cast<void>(SetForegroundWindow(m_owner));
    if (code != BN_CLICKED || !IsFormFree())
        return;
    if (control == kCurrent)
        MakeCurrent();
    if (control == kAll) {
        m_sheets.TickAll();
        Tell({});
    }
    OnWay(control);
}

void SheetsWindow::OnNotice(const NMHDR& notice)
{
    if (notice.idFrom == static_cast<UINT_PTR>(kList))
        OnList(notice);
    if (notice.idFrom == static_cast<UINT_PTR>(kOpen) && notice.code == static_cast<UINT>(BCN_DROPDOWN))
        ShowRecent();
}

void SheetsWindow::OnList(const NMHDR& notice)
{
    if (notice.code == static_cast<UINT>(NM_DBLCLK))
        return MakeCurrent();
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
    if (notice.code == static_cast<UINT>(LVN_ITEMCHANGED) && !m_isFilling && (change.uChanged & LVIF_STATE) != 0 &&
        ((change.uOldState ^ change.uNewState) & LVIS_STATEIMAGEMASK) != 0)
        TakeTick(change.iItem);
}

bool SheetsWindow::Take(const MSG& message) const
{
    const bool isOurs = message.hwnd == Handle() || IsChild(Handle(), message.hwnd) != FALSE;
    return isOurs && IsDialogMessageW(Handle(), const_cast<MSG*>(&message)) != FALSE;
}

bool SheetsWindow::FindPlace()
{
    const RECT room = WorkAreaOf(m_owner);
    const RECT form = PlaceOfWindow(m_owner);
    const SIZE letter = LetterOf(Handle(), m_font.Handle());
    const int least = kLeastWidth * letter.cx, most = m_page != nullptr ? kMostWidth * letter.cx : least;
    const int formWidth = form.right - form.left, roomWidth = room.right - room.left;
    const int width = std::clamp(roomWidth - formWidth - 4 * kGap, least, most);
    if (formWidth + kGap + width > roomWidth)
        return false;
    const int beyond = std::max<int>(form.right + kGap + width - room.right, 0);
    if (beyond > 0)
        SetWindowPos(m_owner, nullptr, form.left - beyond, form.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    const int height =
        std::min<int>(std::max<int>(form.bottom - form.top, kLeastHeight * letter.cy), room.bottom - room.top);
    const int top = std::max(std::min<int>(form.top, room.bottom - height), static_cast<int>(room.top));
    SetWindowPos(Handle(), nullptr, form.right - beyond + kGap, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

void SheetsWindow::Appear()
{
    if (!FindPlace())
        return;
    LayOut();
    ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    if (m_keeper != nullptr && m_keeper->HasPage())
        ShowPage(); // of the showing before
    FormChanged();
}

void SheetsWindow::LayOut()
{
    RECT room = {};
    GetClientRect(Handle(), &room);
    const SIZE letter = LetterOf(Handle(), m_font.Handle());
    const int gap = letter.cy / 2, line = letter.cy + gap;
    const int width = std::max<int>(room.right - 2 * gap, 0);
    const int ways = Get(kOpen) != nullptr ? line + gap : 0;
    const int fixed = 2 * letter.cy + 2 * line + 2 * letter.cy + 7 * gap + ways;
    const int free = std::max<int>(room.bottom - fixed, 0), list = m_page != nullptr ? free / 3 : free;
    int y = gap;
    const auto put = [&](Control control, int left, int wide, int height) {
        MoveWindow(Get(control), left, y, wide, height, TRUE);
    };
    put(kHeadline, gap, width, 2 * letter.cy), y += 2 * letter.cy + gap;
    put(kList, gap, width, list), y += list + gap;
    SendMessageW(Get(kList), LVM_SETCOLUMNWIDTH, 0, std::max(width - Scaled(24), 0));
    put(kTick, gap, 6 * letter.cx, letter.cy), put(kWords, gap + 6 * letter.cx, width - 6 * letter.cx, line);
    y += line + gap;
    put(kCurrent, gap, (width - gap) / 2, line), put(kAll, gap + (width + gap) / 2, (width - gap) / 2, line);
    y += line + gap;
    if (Get(kOpen) != nullptr) {
        put(kOpen, gap, Get(kEditMarks) != nullptr ? (width - gap) / 2 : width, line);
        put(kEditMarks, gap + (width + gap) / 2, (width - gap) / 2, line);
        y += line + gap;
    }
    put(kReason, gap, width, letter.cy), y += letter.cy;
    put(kTrouble, gap, width, letter.cy), y += letter.cy + gap;
    if (m_page != nullptr)
        MoveWindow(m_page->Handle(), gap, y, width, std::max<int>(room.bottom - y - gap, 0), TRUE);
}

} // namespace sm::win32
