// SPDX-License-Identifier: GPL-3.0-or-later
// The window that tells how a run ended.
#pragma once

#include "beside/RunEnd.h"
#include "ports/IDesktop.h"

namespace sm::qt {

/// Shows it, modal, and waits for the user. Documents and folders are opened by `desktop`; the log has a window of its
/// own. Never throws: a window that can't be shown counts as closed.
beside::NextStep AskAtEnd(const beside::RunEnd& end, IDesktop& desktop) noexcept;

} // namespace sm::qt
