// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that a mark is edited in.
#pragma once

#include "beside/MarkBoard.h"

class QWidget;

namespace sm::qt {

/// Waits for the user, who stays in it until the board takes what was entered. True when it did.
bool EditMark(beside::IMarkBoard& board, const std::string& layout, std::size_t mark, QWidget* owner);

} // namespace sm::qt
