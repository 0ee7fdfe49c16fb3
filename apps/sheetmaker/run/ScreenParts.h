// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows' program brings along: the toolkit itself is known there alone.
#pragma once

#include "beside/Company.h"
#include "beside/MarkBoard.h"
#include "beside/WindowMemory.h"
#include "cadhost/PointPicker.h"
#include "ports/IDesktop.h"
#include "ports/IFormToolkit.h"

namespace sm::app {

/// All outlive the run that they are handed to.
struct ScreenParts {
    IDesktop& desktop;
    IFormToolkit& toolkit;
    cadhost::IPointPicker& picker;
    bool hasTerminal = false;                ///< somebody sees the error stream as it comes
    bool areErrorsRead = false;              ///< somebody gets to see it, if only later
    beside::ICompany* company = nullptr;     ///< null: nothing stands beside the forms, and no window tells the end
    beside::IWindowMemory* memory = nullptr; ///< null: nothing is remembered
    beside::IMarkWindow* marks = nullptr;    ///< null: marks are changed in the forms alone
};

} // namespace sm::app
