// SPDX-License-Identifier: GPL-3.0-or-later
// One piece of work at a time.
#pragma once

#include "windows/objects/CallGuard.h"

namespace sm::windows {

/// While a conversion waits for the host, its thread takes calls. One that would begin another piece of work on the
/// same object is refused: throws BadArgument (RPC_E_CALL_REJECTED).
class Working {
public:
    explicit Working(bool& flag) : m_flag(flag)
    {
        if (flag)
            throw BadArgument(RPC_E_CALL_REJECTED, "The object is at work already");
        flag = true;
    }
    ~Working() { m_flag = false; }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    bool& m_flag;
};

} // namespace sm::windows
