// SPDX-License-Identifier: GPL-3.0-or-later
// Calls of the operating system that write files, any one of which a test can make fail, ours and our libraries' alike.
#pragma once

namespace sm::app {

/// While one lives, the `failing`-th writing call of this process fails with EIO, counted from 1; every call from there
/// on, when `forGood`.
class FailingCalls {
public:
    FailingCalls(int failing, bool forGood);
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    /// How many calls have failed so far.
    [[nodiscard]] int Injected() const;
};

} // namespace sm::app
