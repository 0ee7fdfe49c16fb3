// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/controls/TabStripWindow.h"

#include "windows/automation/WideText.h"

#include <commctrl.h>
#include <uxtheme.h>

namespace sm::windows {

TabStripWindow::TabStripWindow(const ControlSite& site) : HolderWindow(site)
{
    constexpr int kBeyondAllTabs = 4000; // so that none is scrolled away before the strip gets its place
    Create(WC_TABCONTROLW, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
    MoveWindow(Window(), 0, 0, kBeyondAllTabs, 100, FALSE);
}

int TabStripWindow::Add(const ControlWindow& page, const std::string& caption)
{
    std::wstring text = Wide(caption);
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    m_pages.push_back(&page);
    return static_cast<int>(
        SendMessageW(Window(), TCM_INSERTITEMW, m_pages.size() - 1, reinterpret_cast<LPARAM>(&item)));
}

void TabStripWindow::SetCaption(int page, const std::string& caption)
{
    std::wstring text = Wide(caption);
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    SendMessageW(Window(), TCM_SETITEMW, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&item));
}

RECT TabStripWindow::Inside() const
{
    RECT inside = {};
    GetClientRect(Window(), &inside);
    SendMessageW(Window(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
    return inside;
}

LRESULT TabStripWindow::Notify(const NMHDR& notice)
{
    if (notice.code == static_cast<UINT>(TCN_SELCHANGE))
        Reporter().Selected(Position(), static_cast<std::int32_t>(SendMessageW(Window(), TCM_GETCURSEL, 0, 0)));
    return 0;
}

SIZE TabStripWindow::Needed(const FormFont&) const
{
    constexpr LONG kRim = 4;
    RECT last = {};
    const auto count = static_cast<WPARAM>(m_pages.size());
    if (count == 0 || SendMessageW(Window(), TCM_GETITEMRECT, count - 1, reinterpret_cast<LPARAM>(&last)) == 0)
        return {0, 0};
    return {last.right + kRim, 0};
}

RECT TabStripWindow::Border(const FormFont&) const
{
    constexpr LONG kSide = 1000;
    RECT inside = {0, 0, kSide, kSide};
    SendMessageW(Window(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
    return {inside.left, inside.top, kSide - inside.right, kSide - inside.bottom};
}

void TabStripWindow::Apply(const FormControl& control, const FormControl&)
{
    if (static_cast<std::int32_t>(SendMessageW(Window(), TCM_GETCURSEL, 0, 0)) != control.selection)
        SendMessageW(Window(), TCM_SETCURSEL, static_cast<WPARAM>(control.selection), 0);
    for (const bool inFront : {true, false}) { // the new page first: the keyboard never loses its window in between
        for (std::size_t i = 0; i < m_pages.size(); ++i) {
            if ((static_cast<std::int32_t>(i) == control.selection) == inFront)
                ShowWindow(m_pages[i]->Window(), inFront ? SW_SHOWNA : SW_HIDE);
        }
    }
}

LRESULT TabStripWindow::Handle(UINT message, WPARAM wide, LPARAM extra)
{
    return message == WM_ERASEBKGND ? ControlWindow::Handle(message, wide, extra)
                                    : HolderWindow::Handle(message, wide, extra);
}

TabPageWindow::TabPageWindow(const ControlSite& site)
    : HolderWindow(site), m_strip(dynamic_cast<TabStripWindow*>(site.holder))
{
    Create(L"STATIC", WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
    if (m_strip != nullptr)
        m_page = m_strip->Add(*this, site.control.caption);
}

/// The page's own window would write the caption into itself.
void TabPageWindow::Apply(const FormControl& control, const FormControl& last)
{
    if (m_strip != nullptr && control.caption != last.caption)
        m_strip->SetCaption(m_page, control.caption);
}

void TabPageWindow::Place(const RECT& place, const FormUnits& units)
{
    HolderWindow::Place(m_strip != nullptr ? m_strip->Inside() : place, units);
}

COLORREF TabPageWindow::Surface() const
{
    return GetSysColor(IsAppThemed() && IsThemeActive() ? COLOR_WINDOW : COLOR_BTNFACE);
}

} // namespace sm::windows
