// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/PolylineMeshes.h"

#include "context/Strokes.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace sm::render {

namespace {

// DXF reference, VERTEX group 70.
constexpr std::uint8_t kPolyfacePosition = 64;
constexpr std::uint8_t kPolyfaceMesh = 128;

} // namespace

// Rows and columns of a mesh, each as one line (DXF reference, POLYLINE groups 70 to 72).
void DrawPolylineMesh(PaintContext& context, const drawing::PolylineData& mesh)
{
    std::vector<Vec2> points;
    for (const drawing::PolyVertex& vertex : mesh.vertices) {
        if (!mesh.splineFitted || (vertex.flags & drawing::kFrameVertex) == 0) {
            points.push_back(context.frame->toPaper.Apply(vertex.point));
        }
    }
    const auto rows = static_cast<std::size_t>(std::max(mesh.meshM, 0));
    auto columns = static_cast<std::size_t>(std::max(mesh.meshN, 0));
    if (rows > 0 && points.size() % rows == 0) {
        columns = points.size() / rows; // a smoothed mesh holds more than its groups 71 and 72 say
    }
    if (rows == 0 || columns == 0 || rows > points.size() / columns) {
        return;
    }
    const auto line = [&](std::size_t count, bool closed, auto&& at) {
        for (std::size_t i = 0; i < count; ++i) {
            i == 0 ? context.path.MoveTo(at(i)) : context.path.LineTo(at(i));
        }
        if (closed) {
            context.path.Close();
        }
    };
    for (std::size_t row = 0; row < rows; ++row) {
        line(columns, mesh.meshClosedN, [&](std::size_t i) { return points[row * columns + i]; });
    }
    for (std::size_t column = 0; column < columns; ++column) {
        line(rows, mesh.meshClosedM, [&](std::size_t i) { return points[i * columns + column]; });
    }
    StrokePath(context);
}

void DrawPolyface(PaintContext& context, const drawing::PolylineData& face)
{
    std::vector<Vec2> points;
    for (const drawing::PolyVertex& vertex : face.vertices) {
        if ((vertex.flags & kPolyfacePosition) != 0) {
            points.push_back(context.frame->toPaper.Apply(vertex.point));
        }
    }
    for (const drawing::PolyVertex& vertex : face.vertices) {
        if ((vertex.flags & (kPolyfacePosition | kPolyfaceMesh)) != kPolyfaceMesh) {
            continue;
        }
        std::size_t corners = 0;
        while (corners < vertex.face.size() && vertex.face[corners] != 0) {
            ++corners;
        }
        for (std::size_t i = 0; i < corners; ++i) {
            const std::int32_t from = vertex.face[i]; // negative: the edge that begins here is hidden
            const auto to = static_cast<std::size_t>(std::abs(std::int64_t{vertex.face[(i + 1) % corners]}));
            if (from > 0 && static_cast<std::size_t>(from) <= points.size() && to <= points.size()) {
                context.path.MoveTo(points[static_cast<std::size_t>(from) - 1]);
                context.path.LineTo(points[to - 1]);
            }
        }
    }
    StrokePath(context);
}

} // namespace sm::render
