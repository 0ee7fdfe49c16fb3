// SPDX-License-Identifier: GPL-3.0-or-later
// MLINE, with its style already in place.
#pragma once

#include "drawing/entities/Entity.h"

#include <vector>

namespace sm::drawing {

/// MLINE with its style. Points and directions in the WCS.
struct MLineData : Entity {
    struct Vertex {
        Vec3 point, direction, miter;       ///< `direction` of the segment that begins here
        std::uint32_t first = 0, count = 0; ///< its pieces, one for each element of the style
    };
    /// Lengths along the miter (one) and along the segment (all that follow).
    struct Piece {
        std::uint32_t first = 0, count = 0, fillCount = 0; ///< into `lengths`; those of the fill come last
    };
    struct Element {
        double offset = 0;
        Entity pen;
    };
    std::vector<Vertex> vertices;
    std::vector<Piece> pieces;
    std::vector<double> lengths;
    bool closed = false, noStartCap = false, noEndCap = false;
    std::vector<Element> elements; ///< of the style
    std::int32_t styleFlags = 0;   ///< DXF reference, MLINESTYLE 70
    Entity fill;                   ///< its colour
    double startAngle = 90, endAngle = 90;
};
void Read(const Drawing&, const EntityRecord&, MLineData&);

} // namespace sm::drawing
