// SPDX-License-Identifier: GPL-3.0-or-later
// Ctrl+C and its relatives while a window is up.
#pragma once

namespace sm::qt {

/// While one of these lives, SIGINT, SIGTERM and SIGHUP close the front modal window as its close box would, from the
/// event loop; what the window makes of that is its own business. A second signal has its usual effect when the first
/// wasn't noticed, or when the window noticed it and stayed: a process that hangs or asks can be ended. The last one
/// puts back what the signals did before; a signal that no window noticed takes its effect then. Lives on the thread of
/// the windows, and nests.
class ClosesOnSignal {
public:
    ClosesOnSignal();
    ~ClosesOnSignal();
    ClosesOnSignal(const ClosesOnSignal&) = delete;
    ClosesOnSignal& operator=(const ClosesOnSignal&) = delete;
};

} // namespace sm::qt
