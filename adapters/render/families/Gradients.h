// SPDX-License-Identifier: GPL-3.0-or-later
// Areas filled with a gradient.
#pragma once

#include "context/PaintContext.h"

namespace sm::drawing {
struct HatchData;
}

namespace sm::render {

/// A gradient as bands of even colour within the boundary that the context's path holds.
void DrawGradient(PaintContext& context, const drawing::HatchData& hatch, const Matrix2& plane);

} // namespace sm::render
