// SPDX-License-Identifier: GPL-3.0-or-later
// One dialog of an object at a time.
#pragma once

#include <utility>

namespace sm::windows {

/// While a dialog is shown, its thread takes calls. One that would show the same object's dialog once more finds it at
/// work, and does nothing.
class Working {
public:
    explicit Working(bool& flag) : m_flag(flag), m_begun(!std::exchange(flag, true)) {}
    ~Working()
    {
        if (m_begun)
            m_flag = false;
    }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

    /// False: it was at work already.
    explicit operator bool() const { return m_begun; }

private:
    bool& m_flag;
    bool m_begun;
};

} // namespace sm::windows
