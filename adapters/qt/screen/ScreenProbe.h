// SPDX-License-Identifier: GPL-3.0-or-later
// Whether there is a screen to be had. Qt ends the process when there is none, so this is asked first.
#pragma once

#include <memory>
#include <string>

namespace sm::qt {

/// A connection to an X display; gone with its last owner.
using HeldDisplay = std::shared_ptr<void>;

/// Looks at QT_QPA_PLATFORM, DISPLAY and WAYLAND_DISPLAY. An X display is connected to, and the connection is in `held`
/// then: some servers start anew when their last client leaves, so it is to be kept until Qt has one of its own. What
/// can't be told that way is tried out in a child process, for ten seconds at most. On false `why` says in one sentence
/// what is missing.
bool ScreenIsThere(std::string& why, HeldDisplay& held);

} // namespace sm::qt
