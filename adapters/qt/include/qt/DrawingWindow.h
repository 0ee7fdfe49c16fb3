// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows a layout of a drawing and lets the user pick points in it.
#pragma once

#include "scene/DrawingWindow.h"

#include <memory>

namespace sm::qt {

/// To be used while a Screen is open, from its thread; may be made before and may outlive it. Without a screen each
/// pick throws.
std::unique_ptr<scene::IDrawingWindow> CreateDrawingWindow(const scene::DrawingWindowOptions& options);

} // namespace sm::qt
