// SPDX-License-Identifier: GPL-3.0-or-later
// List boxes, and list views with columns.
#include "windows/controls/ControlWindow.h"

#include "windows/automation/WideText.h"

#include <algorithm>

#include <commctrl.h>

namespace sm::windows {
namespace {

class ListBoxWindow final : public ControlWindow {
public:
    explicit ListBoxWindow(const ControlSite& site) : ControlWindow(site)
    {
        Create(L"LISTBOX", LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, WS_EX_CLIENTEDGE);
    }
    [[nodiscard]] COLORREF Back() const override { return ColorOf(Shown().backColor); }
    void Command(int code) override
    {
        if (code == LBN_SELCHANGE)
            Reporter().Selected(Position(), Chosen());
    }

private:
    [[nodiscard]] std::int32_t Chosen() const
    {
        return static_cast<std::int32_t>(SendMessageW(Window(), LB_GETCURSEL, 0, 0));
    }
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.items != last.items) {
            SendMessageW(Window(), LB_RESETCONTENT, 0, 0);
            for (const std::string& item : control.items)
                SendMessageW(Window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item).c_str()));
        }
        if (Chosen() != control.selection)
            SendMessageW(Window(), LB_SETCURSEL, static_cast<WPARAM>(control.selection), 0);
    }
};

class RowsWindow final : public ControlWindow {
public:
    explicit RowsWindow(const ControlSite& site) : ControlWindow(site), m_columns(site.control.columns)
    {
        Create(WC_LISTVIEWW, LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER, WS_EX_CLIENTEDGE);
        const LPARAM extras = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
        SendMessageW(Window(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, extras);
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            std::wstring header = Wide(m_columns[i].header);
            LVCOLUMNW column = {};
            column.mask = LVCF_TEXT | LVCF_WIDTH;
            column.pszText = header.data();
            SendMessageW(Window(), LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        }
    }
    LRESULT Notify(const NMHDR& notice) override
    {
        if (notice.code == LVN_ITEMCHANGED)
            NoteChange(reinterpret_cast<const NMLISTVIEW&>(notice));
        else if (notice.code == static_cast<UINT>(NM_DBLCLK))
            TellDoubleClick(reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem);
        return 0;
    }
    void UseFont(const FormFont& font) override
    {
        ControlWindow::UseFont(font);
        m_font = &font;
        m_units = {};
    }
    /// Columns get their widths at a new scale; in between they stay as the user has dragged them.
    void Place(const RECT& place, const FormUnits& units) override
    {
        constexpr LONG kHeaderAir = 16;
        ControlWindow::Place(place, units);
        if (units == m_units)
            return;
        m_units = units;
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            const LONG least = m_font == nullptr ? 0 : m_font->Size(Wide(m_columns[i].header)).cx + kHeaderAir;
            const LONG width = std::max(least, static_cast<LONG>(units.Across(m_columns[i].width)));
            const LPARAM wanted =
                i + 1 < m_columns.size() ? width : LVSCW_AUTOSIZE_USEHEADER; // the last takes the rest
            SendMessageW(Window(), LVM_SETCOLUMNWIDTH, i, wanted);
        }
    }

private:
    [[nodiscard]] std::int32_t Chosen() const
    {
        return static_cast<std::int32_t>(
            SendMessageW(Window(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }
    /// A row is unchosen before another is chosen: only what comes of it is told.
    void NoteChange(const NMLISTVIEW& change)
    {
        if ((change.uChanged & LVIF_STATE) == 0 || ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) == 0)
            return;
        Reporter().Later([this] {
            if (Chosen() != Reporter().State(Position()).selection)
                Reporter().Selected(Position(), Chosen());
        });
    }
    void TellDoubleClick(int row)
    {
        if (row >= 0)
            Reporter().Tell(Position(), [&](IForm& form) { form.UserDoubleClicked(Position(), row); });
    }
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.rows != last.rows)
            Fill(control.rows);
        if (Chosen() == control.selection)
            return;
        LVITEMW state = {};
        state.stateMask = LVIS_SELECTED;
        SendMessageW(Window(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&state));
        if (control.selection < 0)
            return;
        const auto row = static_cast<WPARAM>(control.selection);
        state.state = state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        SendMessageW(Window(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&state));
        SendMessageW(Window(), LVM_ENSUREVISIBLE, row, FALSE);
    }
    void Fill(const std::vector<ListRow>& rows)
    {
        const auto wanted = static_cast<LRESULT>(rows.size());
        while (SendMessageW(Window(), LVM_GETITEMCOUNT, 0, 0) > wanted)
            SendMessageW(Window(), LVM_DELETEITEM, static_cast<WPARAM>(wanted), 0);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            Put(i, 0, rows[i].text);
            for (std::size_t column = 1; column < m_columns.size(); ++column)
                Put(i, column, column <= rows[i].subItems.size() ? rows[i].subItems[column - 1] : std::string());
        }
    }
    void Put(std::size_t row, std::size_t column, const std::string& text)
    {
        std::wstring wide = Wide(text);
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(row);
        item.iSubItem = static_cast<int>(column);
        item.pszText = wide.data();
        const bool isNew = column == 0 && SendMessageW(Window(), LVM_GETITEMCOUNT, 0, 0) <= item.iItem;
        SendMessageW(Window(), isNew ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }

    std::vector<ListColumn> m_columns;
    const FormFont* m_font = nullptr;
    FormUnits m_units;
};

} // namespace

std::unique_ptr<ControlWindow> MakeListWindow(const ControlSite& site)
{
    if (site.control.kind == ControlKind::ListBox)
        return std::make_unique<ListBoxWindow>(site);
    return site.control.kind == ControlKind::ListView ? std::make_unique<RowsWindow>(site) : nullptr;
}

} // namespace sm::windows
