// SPDX-License-Identifier: GPL-3.0-or-later
// Tells how a run ended.
#pragma once

#include "beside/RunEnd.h"
#include "ports/IDesktop.h"

namespace sm::win32 {

/// Waits for the user.
beside::NextStep AskAtEnd(const beside::RunEnd& end, IDesktop& desktop);

} // namespace sm::win32
