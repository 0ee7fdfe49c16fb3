// SPDX-License-Identifier: GPL-3.0-or-later
// How the list of sheets and its preview keep in step with the form, and what the user does in them.
#include "beside/SheetsWindow.h"
#include "window/WindowText.h"
#include "windows/automation/WideText.h"

#include <cmath>
#include <utility>

#include <commctrl.h>

namespace sm::win32 {

// Several changes come one after the other; they are looked at once.
void SheetsWindow::FormChanged()
{
    if (std::exchange(m_isDue, true))
        return;
    PostWork([this] { Renew(); });
}

void SheetsWindow::Renew()
{
    m_isDue = false;
    if (m_keeper != nullptr && IsWindowVisible(Handle()) != FALSE)
        m_keeper->Renew();
    beside::SheetsNow now = m_sheets.Now(m_form.Controls());
    if (now == m_now)
        return;
    m_now = std::move(now);
    ShowText(Get(kHeadline), m_now.headline);
    ShowRows();
    EnableWindow(Get(kWords), m_now.ticksCount ? TRUE : FALSE);
    EnableWindow(Get(kAll), m_now.ticksCount ? TRUE : FALSE);
}

void SheetsWindow::ShowRows()
{
    m_isFilling = true;
    const HWND list = Get(kList);
    int chosen = ListView_GetNextItem(list, -1, LVNI_SELECTED);
    ListView_DeleteAllItems(list);
    for (std::size_t i = 0; i < m_now.rows.size(); ++i) {
        const beside::SheetRow& row = m_now.rows[i];
        std::wstring text = windows::Wide(row.name) + (row.isCurrent ? L"  (current tab)" : L"");
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(i);
        item.pszText = text.data();
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        const bool hasBox = m_now.ticksCount && !row.isModel;
        const UINT box = hasBox ? INDEXTOSTATEIMAGEMASK(row.isTicked ? 2U : 1U) : 0;
        ListView_SetItemState(list, item.iItem, box, LVIS_STATEIMAGEMASK);
        if (chosen < 0 && row.isCurrent)
            chosen = item.iItem;
    }
    if (chosen >= 0)
        ListView_SetItemState(list, chosen, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_isFilling = false;
}

void SheetsWindow::TakeTick(int row)
{
    const auto at = static_cast<std::size_t>(row);
    if (row < 0 || at >= m_now.rows.size() || !m_now.ticksCount || m_now.rows[at].isModel || !IsFormFree()) {
        m_now = {}; // shown as it is
        return FormChanged();
    }
    m_now.rows[at].isTicked = ListView_GetCheckState(Get(kList), row) != 0;
    Tell(m_sheets.Tick(m_now.rows[at].name, m_now.rows[at].isTicked));
}

void SheetsWindow::TakeWords()
{
    if (!IsFormFree())
        return;
    const std::string reason = m_sheets.TickMeant(TextOf(Get(kWords)));
    if (reason.empty())
        ShowText(Get(kWords), {});
    else
        SendMessageW(Get(kWords), EM_SETSEL, 0, -1);
    Tell(reason);
}

void SheetsWindow::MakeCurrent()
{
    const int row = ListView_GetNextItem(Get(kList), -1, LVNI_SELECTED);
    if (row < 0 || static_cast<std::size_t>(row) >= m_now.rows.size() || !IsFormFree())
        return;
    m_sheets.MakeCurrent(m_now.rows[static_cast<std::size_t>(row)].name);
    Tell({});
}

void SheetsWindow::Tell(const std::string& reason)
{
    ShowText(Get(kReason), reason);
    if (!reason.empty())
        MessageBeep(MB_OK);
    FormChanged();
}

void SheetsWindow::ShowPage()
{
    const scene::DrawnPreview& drawn = m_keeper->Page();
    const double size = drawn.page.width * drawn.page.height;
    const auto view = drawn.picture != nullptr && m_size == size ? m_page->OwnMap() : std::nullopt;
    m_size = size;
    ShowText(Get(kTrouble), drawn.page.trouble);
    ShowText(m_page->Handle(), drawn.picture == nullptr
                                   ? "Preview: no page"
                                   : "Preview: a page of " + std::to_string(std::lround(drawn.page.width)) + " x " +
                                         std::to_string(std::lround(drawn.page.height)) + " mm");
    m_page->SetPicture(drawn.picture);
    if (view)
        m_page->SetMap(*view); // the user looks at a part of it
}

bool SheetsWindow::IsSettled() const
{
    const bool isDrawn = m_keeper == nullptr || m_keeper->Page().picture == nullptr || m_page->IsPainted();
    return !m_isDue && (m_keeper == nullptr || !m_keeper->IsBusy()) && isDrawn;
}

} // namespace sm::win32
