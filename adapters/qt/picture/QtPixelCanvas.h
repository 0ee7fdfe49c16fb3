// SPDX-License-Identifier: GPL-3.0-or-later
// Shapes in pixels by Qt's painter.
#pragma once

#include "scene/PixelCanvas.h"

#include <memory>

namespace sm::qt {

std::unique_ptr<scene::IPixelCanvases> CreateQtCanvases();

} // namespace sm::qt
