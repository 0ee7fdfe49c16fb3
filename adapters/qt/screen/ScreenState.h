// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows of one screen share.
#pragma once

#include "beside/SheetList.h"
#include "beside/WindowMemory.h"
#include "ports/IDesktop.h"

#include <functional>
#include <optional>
#include <string>

namespace sm::qt {

struct ScreenState {
    beside::ISheetList* sheets = nullptr;    ///< what stands beside the forms; null: nothing does
    beside::IWindowMemory* memory = nullptr; ///< null: nothing is remembered
    IDesktop* desktop = nullptr;             ///< null: questions beside a form count as answered with "Cancel"
    std::optional<std::string> dropped{};    ///< a file that answers the next question for one to open
    std::function<void()> rowEnded{};        ///< a form that was shown for a dropped file has gone
};

} // namespace sm::qt
