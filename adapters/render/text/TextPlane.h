// SPDX-License-Identifier: GPL-3.0-or-later
// Where an MTEXT lies: its insertion and direction are in the WCS, what is laid out in the plane of its extrusion.
#pragma once

#include "render/Matrix.h"

namespace sm::drawing {
struct MTextData;
} // namespace sm::drawing

namespace sm::render {

/// From the text's own axes, origin at the insertion point, to the OCS plane.
Matrix2 PlaneOf(const drawing::MTextData& text);
/// Height of the insertion point over that plane.
double ElevationOf(const drawing::MTextData& text);

} // namespace sm::render
