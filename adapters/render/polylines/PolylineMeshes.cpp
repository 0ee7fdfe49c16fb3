// SPDX-License-Identifier: GPL-3.0-or-later
#include "polylines/PolylineMeshes.h"

#include "context/Strokes.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace sm::render {

namespace {

// DXF reference, VERTEX group 70.
constexpr std::uint8_t kPolyfacePosition = 64;
constexpr std::uint8_t kPolyfaceMesh = 128;

/// What is drawn of a mesh's vertices, in rows.
struct Grid {
    std::vector<Vec3> points;
    std::size_t rows = 0, columns = 0;
};

Grid GridOf(const drawing::PolylineData& mesh)
{
    Grid grid;
    for (const drawing::PolyVertex& vertex : mesh.vertices) {
        if (!mesh.splineFitted || (vertex.flags & drawing::kFrameVertex) == 0) {
            grid.points.push_back(vertex.point);
        }
    }
    grid.rows = static_cast<std::size_t>(std::max(mesh.meshM, 0));
    grid.columns = static_cast<std::size_t>(std::max(mesh.meshN, 0));
    if (grid.rows > 0 && grid.points.size() % grid.rows == 0) {
        grid.columns = grid.points.size() / grid.rows; // a smoothed mesh holds more than its groups 71 and 72 say
    }
    if (grid.rows == 0 || grid.columns == 0 || grid.rows > grid.points.size() / grid.columns) {
        return {};
    }
    return grid;
}

void AddGridFaces(const drawing::PolylineData& mesh, FaceCollector& faces)
{
    const Grid grid = GridOf(mesh);
    const std::size_t rows = grid.rows < 2 ? 0 : grid.rows - (mesh.meshClosedM ? 0 : 1);
    const std::size_t columns = grid.columns < 2 ? 0 : grid.columns - (mesh.meshClosedN ? 0 : 1);
    const auto at = [&](std::size_t row, std::size_t column) {
        return grid.points[row % grid.rows * grid.columns + column % grid.columns];
    };
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            faces.Add(std::array{at(row, column), at(row, column + 1), at(row + 1, column + 1), at(row + 1, column)});
        }
    }
}

} // namespace

// Rows and columns of a mesh, each as one line (DXF reference, POLYLINE groups 70 to 72).
void DrawPolylineMesh(PaintContext& context, const drawing::PolylineData& mesh)
{
    const Grid grid = GridOf(mesh);
    const std::size_t rows = grid.rows, columns = grid.columns;
    std::vector<Vec2> points;
    for (const Vec3 point : grid.points) {
        points.push_back(context.frame->toPaper.Apply(point));
    }
    if (rows == 0) {
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

void AddMeshFaces(const drawing::PolylineData& mesh, FaceCollector& faces)
{
    if (!mesh.isPolyface) {
        AddGridFaces(mesh, faces);
        return;
    }
    std::vector<Vec3> points;
    for (const drawing::PolyVertex& vertex : mesh.vertices) {
        if ((vertex.flags & kPolyfacePosition) != 0) {
            points.push_back(vertex.point);
        }
    }
    std::vector<Vec3> corners;
    for (const drawing::PolyVertex& vertex : mesh.vertices) {
        if ((vertex.flags & (kPolyfacePosition | kPolyfaceMesh)) != kPolyfaceMesh) {
            continue;
        }
        corners.clear();
        for (const std::int32_t corner : vertex.face) {
            const auto number = static_cast<std::size_t>(std::abs(std::int64_t{corner}));
            if (number > 0 && number <= points.size()) {
                corners.push_back(points[number - 1]);
            }
        }
        faces.Add(corners);
    }
}

} // namespace sm::render
