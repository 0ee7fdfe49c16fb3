// SPDX-License-Identifier: GPL-3.0-or-later
// The window that a run without a drawing begins with.
#pragma once

#include "screen/ScreenState.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::qt {

/// Lists `recent`, takes a drawing that is dropped on it, or asks for another one. Nothing when it was closed. Never
/// throws: a window that can't be shown counts as closed.
std::optional<std::string> AskAmongRecent(const std::vector<std::string>& recent, const ScreenState& state) noexcept;

} // namespace sm::qt
