// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/MarkPane.h"

#include "view/MarkDialog.h"

namespace sm::win32 {

bool MarkPane::EditMark(beside::IMarkBoard& board, const std::string& layout, std::size_t mark)
{
    MarkDialog dialog(board, layout, mark, GetParent(m_view.Handle()));
    const bool isChanged = dialog.Ask();
    SetFocus(m_view.Handle());
    return isChanged;
}

} // namespace sm::win32
