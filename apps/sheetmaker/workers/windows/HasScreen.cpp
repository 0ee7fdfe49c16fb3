// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WindowsProgram.h"

namespace sm::app {

bool HasScreen(const system::Environment&)
{
    return true;
}

} // namespace sm::app
