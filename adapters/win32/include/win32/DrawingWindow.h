// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a layout of a drawing and lets the user pick points in it.
#pragma once

#include "scene/DrawingWindow.h"

#include <memory>

#include <windef.h>

namespace sm::win32 {

/// To be used on one thread, which looks at its messages while a point is picked and afterwards.
std::unique_ptr<scene::IDrawingWindow> CreateDrawingWindow(const scene::DrawingWindowOptions& options);

/// What forms and boxes may be modal over: the thread's active window, or the form that it stands beside; not the
/// drawing's, which goes by itself.
HWND ActiveOwner();

} // namespace sm::win32
