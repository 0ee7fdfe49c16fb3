// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that an entity brings along for programs that don't know its kind: ACAD_PROXY_ENTITY and any other entity
// with graphics data (DXF reference, common groups 92 or 160, then 310).
#pragma once

#include "drawing/entities/Polylines.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {

/// One step of such a picture: something drawn, or a property of what follows. WCS, angles in radians.
struct Graphic {
    enum class Kind : std::uint8_t {
        Circle,        ///< points[0], radius, normal
        Arc,           ///< the same, direction of its start, sweep
        Polyline,      ///< points
        LwPolyline,    ///< plane
        Polygon,       ///< points, filled when filling is on
        Mesh,          ///< points of `rows` rows
        Shell,         ///< points; `faces`: a count (negative: a hole), then positions
        Text,          ///< points[0], direction, normal, height, widthFactor, oblique, text
        XLine,         ///< two points
        Ray,           ///< two points
        Color,         ///< color, trueColor
        Layer,         ///< index
        Linetype,      ///< index
        Lineweight,    ///< index, as group 370
        LinetypeScale, ///< value
        Fill,          ///< index: 1 on
        PushMatrix,    ///< points: the images of the axes, then of the origin
        PopMatrix
    } kind = Kind::Polyline;
    std::vector<Vec3> points;
    std::vector<std::int32_t> faces;
    Vec3 normal{0, 0, 1}, direction{1, 0, 0};
    double radius = 0, sweep = 0, height = 0, widthFactor = 1, oblique = 0, value = 0;
    std::int32_t index = 0, rows = 0;
    std::int16_t color = kByLayer;
    std::optional<std::uint32_t> trueColor;
    std::optional<PolylineData> plane;
    std::string text;
    std::uint32_t style = 0; ///< of a text, by its font
};

struct GraphicsData : Entity {
    std::vector<Graphic> steps;
    bool complete = true; ///< false: some steps are of a kind that can't be read
};

/// `steps` stays empty for an entity without a picture.
void Read(const Drawing&, const EntityRecord&, GraphicsData&);

} // namespace sm::drawing
