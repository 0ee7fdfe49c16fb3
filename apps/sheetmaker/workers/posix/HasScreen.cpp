// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WindowsProgram.h"

namespace sm::app {

bool HasScreen(const system::Environment& environment)
{
    for (const char* variable : {"WAYLAND_DISPLAY", "DISPLAY"})
        if (!environment(variable).value_or("").empty())
            return true;
    const std::string platform = environment("QT_QPA_PLATFORM").value_or("");
    return !platform.empty() && platform != "minimal";
}

} // namespace sm::app
