// SPDX-License-Identifier: GPL-3.0-or-later
// What a drafting note (leader, dimension, tolerance, multiline, table) comes down to: lines, areas, texts and blocks
// in one plane, each with its own properties.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/MLines.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/NoteAttribute.h"
#include "drawing/entities/TableEntities.h"
#include "drawing/entities/Texts.h"
#include "render/Projection.h"
#include "render/TextLayout.h"

#include <vector>

namespace sm::render {

/// Coordinates are those of the OCS of `extrusion`, at height `elevation`. Of each part's properties only colour, line
/// type and lineweight count: BYBLOCK is the note's own, BYLAYER that of its layer.
struct NotePicture {
    struct Shape {
        Path path;
        drawing::Entity pen;
        bool filled = false;
    };
    struct Copy {
        drawing::InsertData insert; ///< insertion in the OCS of its own extrusion
        std::vector<drawing::NoteAttribute> attributes;
    };
    Vec3 extrusion{0, 0, 1};
    double elevation = 0;
    std::vector<Shape> shapes;
    std::vector<drawing::MTextData> texts; ///< insertions in the WCS
    std::vector<Copy> copies;

    [[nodiscard]] bool Empty() const { return shapes.empty() && texts.empty() && copies.empty(); }
    /// Takes the plane of `normal` through `point` (WCS).
    void SetPlane(Vec3 normal, Vec3 point);
    [[nodiscard]] Vec2 ToPlane(Vec3 world) const;
    [[nodiscard]] Vec3 ToWorld(Vec2 point) const;
    /// A new line, or area; valid until the next one.
    Path& Add(const drawing::Entity& pen, bool filled = false);
    void AddLine(Vec2 from, Vec2 to, const drawing::Entity& pen);
    /// A closed line, or area, through the corners.
    void AddPolygon(std::initializer_list<Vec2> corners, const drawing::Entity& pen, bool filled = false);
    /// `at` replaces the text's insertion; its axes are those of the plane, turned by its rotation.
    void AddText(drawing::MTextData text, Vec2 at);
};

/// Colour and lineweight as a dimension style gives them; the line type is the note's.
drawing::Entity NotePen(std::int32_t color = drawing::kByBlock, std::int32_t lineweight = drawing::kLineweightByBlock);

/// The size of a text as it is laid out, along its lines and across.
Vec2 SizeOf(const LaidText& text);

/// What builders of pictures need beside the note itself.
struct NoteTools {
    const drawing::Drawing& drawing;
    TextEngine& text;
    [[nodiscard]] Vec2 Measure(const drawing::MTextData& mtext) const { return SizeOf(text.Lay(drawing, mtext)); }
};

/// Draws `head` with its tip at `tip`, pointing along `direction` (of any length). Returns how much of the line behind
/// the tip it takes the place of.
double AddArrow(NotePicture& picture, const NoteTools& tools, const drawing::ArrowHead& head, Vec2 tip, Vec2 direction,
                double size, const drawing::Entity& pen);

void Build(const drawing::LeaderData& leader, const drawing::DimStyle& style, const NoteTools& tools,
           NotePicture& picture);
void Build(const drawing::DimensionData& dimension, const drawing::DimStyle& style, const NoteTools& tools,
           NotePicture& picture);
void Build(const drawing::ToleranceData& tolerance, const drawing::DimStyle& style, const NoteTools& tools,
           NotePicture& picture);
void Build(const drawing::MultiLeaderData& leader, const NoteTools& tools, NotePicture& picture);
void Build(const drawing::MLineData& mline, const NoteTools& tools, NotePicture& picture);
/// By the table's own block where that holds anything, else by the cells.
void Build(const drawing::TableData& table, const NoteTools& tools, NotePicture& picture);

/// `v` at length 1; nothing stays nothing.
inline Vec2 Unit(Vec2 v)
{
    const double length = Length(v);
    return length > 0 && std::isfinite(length) ? v * (1 / length) : Vec2{};
}
inline Vec2 Left(Vec2 v)
{
    return {-v.y, v.x};
}
/// Degrees, counter-clockwise from x.
inline double AngleOf(Vec2 v)
{
    constexpr double kDegrees = 57.295779513082323;
    return v == Vec2{} ? 0 : std::atan2(v.y, v.x) * kDegrees;
}

} // namespace sm::render
