// SPDX-License-Identifier: GPL-3.0-or-later
// One run at a time.
#pragma once

#include "plugin/CallContext.h"

namespace sm {

/// The turn to run: one on each thread. While a run waits for its host, the thread takes calls; one that would begin
/// another run, of the same object or of another, finds the turn taken, since both would change the host's plotter
/// folder and its layouts. The observer of `context` hears of a call that is turned away; no log gets a line.
class RunTurn {
public:
    RunTurn(CallContext& context, const char* routine) noexcept;
    ~RunTurn();
    RunTurn(const RunTurn&) = delete;
    RunTurn& operator=(const RunTurn&) = delete;

    /// False: another run is under way, and the caller does nothing.
    explicit operator bool() const { return m_taken; }

private:
    bool m_taken;
};

} // namespace sm
