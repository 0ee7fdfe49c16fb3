// What the painter's parts share: the entity records that the painter fills again and again, so that drawing allocates
// nothing.
#pragma once

#include "drawing/entities/Curves.h"
#include "drawing/entities/Graphics.h"
#include "drawing/entities/Hatches.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Points.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/Texts.h"
#include "paint/Painter.h"

#include <deque>
#include <optional>

namespace sm::render {

struct Painter::Buffers {
    drawing::Entity entity;
    drawing::LineData line;
    drawing::CircleData circle;
    drawing::ArcData arc;
    drawing::EllipseData ellipse;
    drawing::PolylineData polyline;
    drawing::SplineData spline;
    drawing::PointData point;
    drawing::QuadData quad;
    drawing::TextData text;
    drawing::MTextData mtext;
    drawing::HatchData hatch;
    drawing::ShapeData shape;
    drawing::SolidData solid;
    drawing::MeshData mesh;
    drawing::GraphicsData graphics;
    drawing::ImageData image;
    std::deque<drawing::InsertData> inserts; ///< one for each open block
    std::vector<std::uint32_t> breaks;
    TextRun run;
    std::optional<ShapeLibrary> shapes;
};

/// Block coordinates to those of the insert's owner, for the copy at `row` and `column`; `unit`: what a unit of the
/// block counts besides.
Matrix3 Placing(const drawing::InsertData& insert, Vec3 base, std::int32_t row, std::int32_t column, double unit = 1);

/// Stands for an open block as long as it is painted.
class OpenBlock {
public:
    OpenBlock(std::vector<std::uint32_t>& open, std::uint32_t block) : m_open(open) { open.push_back(block); }
    ~OpenBlock() { m_open.pop_back(); }
    OpenBlock(const OpenBlock&) = delete;
    OpenBlock& operator=(const OpenBlock&) = delete;

private:
    std::vector<std::uint32_t>& m_open;
};

} // namespace sm::render
