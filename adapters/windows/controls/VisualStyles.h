// SPDX-License-Identifier: GPL-3.0-or-later
// The common controls in their styled version, whatever version the program has that the component is loaded into.
#pragma once

#include "windows/system/OwnModule.h"

#include <windows.h>

namespace sm::windows {

/// While one lives, windows that this thread makes are of the version that the module's own manifest asks for.
class VisualStyles {
public:
    VisualStyles();
    ~VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;

private:
    ULONG_PTR m_cookie = 0;
    bool m_isActive = false;
};

} // namespace sm::windows
