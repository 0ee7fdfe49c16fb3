// SPDX-License-Identifier: GPL-3.0-or-later
// What a pen covers that follows lines.
#pragma once

#include "paint/Coverage.h"
#include "scene/PixelCanvas.h"

namespace sm::scene {

/// Adds the area, to be swept as one that isn't zero; dashes aside. Joints that would reach further than ten times the
/// pen's width are cut off.
void AddStroke(const render::Path& path, const PixelPen& pen, Coverage& area);

} // namespace sm::scene
