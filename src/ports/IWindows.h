// SPDX-License-Identifier: GPL-3.0-or-later
// The windows that lower floors open; the forms implement them.
#pragma once

#include "ports/IAcadDocument.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm {

class IAcadPageSetup;

/// No operation throws but `RunProgress`, which passes on what `scan` throws, after the window is closed.
class IWindows {
public:
    virtual ~IWindows() = default;
    /// The settings dialog of the active drawing: 1 when the user chose "Create PDF" and everything was saved, else 0.
    virtual std::int32_t ShowConversionSettings() = 0;
    /// The page setup dialog, modal, titled `title`; true when the user confirmed.
    virtual bool ShowPageSetup(IAcadPageSetup& setup, const std::string& title) = 0;
    /// The pickers: the position chosen in `names`, or nothing when cancelled. -1 stands for a failure of the window.
    virtual std::optional<std::int32_t> PickPlotStyle(const std::vector<std::string>& names) = 0;
    virtual std::optional<std::int32_t> PickJobOptions(const std::vector<std::string>& names) = 0;
    virtual std::optional<std::int32_t> PickPageSize(const std::vector<std::string>& names) = 0;
    /// Runs `scan` inside the progress window; `scan` may call `advance` with the per cent done.
    virtual bool RunProgress(const std::function<bool(const std::function<void(double)>& advance)>& scan) = 0;
};

} // namespace sm
