// SPDX-License-Identifier: GPL-3.0-or-later
// The help pages in a window of our own, for machines without a browser.
#pragma once

#include "beside/WindowMemory.h"

#include <cstdint>
#include <functional>
#include <string>

class QWidget;

namespace sm::qt {

struct HelpSite {
    std::string page;                                     ///< path of the one page with an anchor for each context
    std::function<bool(const std::string& address)> open; ///< of addresses elsewhere
    beside::IWindowMemory* memory = nullptr;              ///< null: no size is remembered
};

/// Shows the anchor of `context` (0: the page's beginning) and comes back at once. The window belongs to `owner`, or to
/// nobody when that is null, and can be used beside it; one that the owner has already is shown again. False when the
/// page can't be read.
bool ShowHelpWindow(const HelpSite& site, std::int32_t context, QWidget* owner);

} // namespace sm::qt
