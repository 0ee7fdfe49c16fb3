// SPDX-License-Identifier: GPL-3.0-or-later
// Draws polylines, also those within other entities.
#pragma once

#include "context/PaintContext.h"
#include "drawing/entities/Polylines.h"

#include <vector>

namespace sm::render {

/// False for the points that a curve was fitted to.
bool IsDrawnVertex(const drawing::PolylineData& polyline, const drawing::PolyVertex& vertex);
/// z of a plane polyline in its OCS, drawing units.
double ElevationOf(const drawing::PolylineData& polyline);

class PolylinePen {
public:
    /// `context` outlives it.
    explicit PolylinePen(PaintContext& context) : m_context(context) {}
    /// In the style of the entity at hand; the context's path is to be empty.
    void Draw(const drawing::PolylineData& polyline);

private:
    void DrawFrame(const drawing::PolylineData& polyline);
    void DrawInSpace(const drawing::PolylineData& polyline);
    void DrawPlain(const drawing::PolylineData& polyline, const Matrix2& plane, bool wide);
    void DrawWide(const drawing::PolylineData& polyline, const Matrix2& plane);

    PaintContext& m_context;
    std::vector<std::uint32_t> m_breaks; ///< verbs where the line type starts anew
};

} // namespace sm::render
