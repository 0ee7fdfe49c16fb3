// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the embedded program that stand beside the plug-in's forms.
#pragma once

#include "beside/RunEnd.h"
#include "beside/RunProgress.h"
#include "beside/SheetList.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::beside {

/// Nothing here throws. All calls are made on the thread of the screen.
class ICompany {
public:
    virtual ~ICompany() = default;
    /// Beside the forms that are shown from now on; outlives them. Null: nothing stands there.
    virtual void StandBeside(ISheetList* sheets) = 0;
    /// A sheet is begun: shows it in a window that stays until `HideProgress`. The user may cancel there.
    virtual void ShowProgress(const RunProgress& progress) = 0;
    virtual void HideProgress() = 0;
    /// Lets the window see what the user did; true when that was to cancel, until `HideProgress`.
    virtual bool IsCancelled() = 0;
    /// Shows how a run ended, waits for the user and says what is to be done next.
    virtual NextStep ShowEnd(const RunEnd& end) = 0;
    /// Lets the user choose a drawing, among `recent` (absolute paths, the latest first) or elsewhere. Nothing when
    /// there was no choice.
    virtual std::optional<std::string> ChooseDrawing(const std::vector<std::string>& recent) = 0;
};

} // namespace sm::beside
