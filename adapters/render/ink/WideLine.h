// SPDX-License-Identifier: GPL-3.0-or-later
// Polyline segments with a width of their own, as filled outlines.
#pragma once

#include "render/Arcs.h"

namespace sm::render {

/// One segment in the plane of its polyline; widths are whole widths at its ends.
struct WideSegment {
    Vec2 from, to;
    double bulge = 0, startWidth = 0, endWidth = 0;
};

/// Appends the segment's outline, mapped to the sheet, as one closed counter-clockwise sub-path.
void AppendWideSegment(Path& path, const WideSegment& segment, const Matrix2& plane);

/// Appends what fills the gap at the outer side of the corner between two segments: up to their sides' meeting point,
/// or straight across where that lies far off.
void AppendWideCorner(Path& path, const WideSegment& before, const WideSegment& after, const Matrix2& plane);

} // namespace sm::render
