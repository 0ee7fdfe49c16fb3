// SPDX-License-Identifier: GPL-3.0-or-later
// Shapes in pixels without any painter of a system: the same everywhere, to the last pixel.
#pragma once

#include "scene/PixelCanvas.h"

#include <memory>

namespace sm::scene {

std::unique_ptr<IPixelCanvases> CreateSoftCanvases();

} // namespace sm::scene
