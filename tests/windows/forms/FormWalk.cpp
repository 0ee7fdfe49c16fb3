// SPDX-License-Identifier: GPL-3.0-or-later
#include "FormWalk.h"

#include "windows/automation/WideText.h"

#include <commctrl.h>

namespace sm::windows {

FormUser WatchedToolkit::UserOf(const std::string& form)
{
    for (int i = 0; i < 500; ++i) {
        {
            const std::lock_guard lock(m_guard);
            if (m_forms.count(form) > 0)
                return FormUser(*m_forms[form]);
        }
        Sleep(10);
    }
    throw std::runtime_error("no form " + form);
}

FormWalk::Texts FormWalk::Record(const std::string& name) const
{
    Texts texts;
    const auto found = drawing->XData.find("TWSI_" + name);
    if (found == drawing->XData.end())
        return {"(absent)"};
    for (const AcadVariant& value : found->second.values)
        texts.push_back(std::get<std::string>(value));
    return texts;
}

std::vector<std::string> RowsOf(const FormUser& user, const std::string& list)
{
    const auto header = reinterpret_cast<HWND>(user.Ask(list, LVM_GETHEADER));
    const LRESULT columns = SendMessageW(header, HDM_GETITEMCOUNT, 0, 0), count = user.Ask(list, LVM_GETITEMCOUNT);
    std::vector<std::string> rows;
    for (LRESULT row = 0; row < count; ++row) {
        std::string line;
        for (int column = 0; column < columns; ++column) {
            wchar_t text[200] = {};
            LVITEMW item = {};
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = 200;
            user.Ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
            line += (column == 0 ? "" : " | ") + Utf8(text);
        }
        rows.push_back(line);
    }
    return rows;
}

void ChooseText(const FormUser& user, const std::string& combo, const std::string& item)
{
    const LRESULT found =
        user.Ask(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(Wide(item).c_str()));
    EXPECT_NE(found, CB_ERR) << item;
    user.Choose(combo, static_cast<int>(found));
}

void Tick(const FormUser& user, const std::string& box, bool ticked)
{
    if ((user.Ask(box, BM_GETCHECK) == BST_CHECKED) != ticked)
        user.Click(box);
}

} // namespace sm::windows
