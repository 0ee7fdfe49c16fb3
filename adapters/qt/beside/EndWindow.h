// SPDX-License-Identifier: GPL-3.0-or-later
// The window that tells how a run ended.
#pragma once

#include "beside/RunEnd.h"
#include "beside/WindowMemory.h"
#include "ports/IDesktop.h"

namespace sm::qt {

/// Shows it, modal, and waits for the user. Documents and folders are opened by `desktop`; the log has a window of its
/// own. Never throws: a window that can't be shown counts as closed. Null for a memory: no size is remembered.
beside::NextStep AskAtEnd(const beside::RunEnd& end, IDesktop& desktop, beside::IWindowMemory* memory) noexcept;

} // namespace sm::qt
