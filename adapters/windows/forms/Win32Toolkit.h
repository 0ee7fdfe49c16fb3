// SPDX-License-Identifier: GPL-3.0-or-later
// The forms' toolkit on the common controls of Windows.
#pragma once

#include "windows/forms/FormWatcher.h"

#include <functional>
#include <memory>

#include <windef.h>

namespace sm::windows {

/// One renderer for any form. `owner` is asked at each showing for the window over which forms are modal, of whatever
/// process; null for none. `watcher` outlives the toolkit; null for none. Forms are made, shown and used on one thread.
/// The module that the renderer is linked into carries Forms.rc, without which the controls are drawn in the oldest
/// style.
std::unique_ptr<IFormToolkit> CreateWin32Toolkit(std::function<HWND()> owner, IFormWatcher* watcher = nullptr);

} // namespace sm::windows
