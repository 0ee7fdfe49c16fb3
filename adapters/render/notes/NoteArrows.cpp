// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Inserts.h"
#include "notes/NotePicture.h"
#include "render/Arcs.h"

#include <array>
#include <string_view>

namespace sm::render {

namespace {

enum class HeadForm : std::uint8_t { Triangle, Open, Dot, Box, Tick, WideTick, Datum, Integral, Nothing };

/// The well-known arrow heads: `half` is half the width, or the radius, of a head 1 long; `cut` what of the line behind
/// the tip they replace.
struct Head {
    std::string_view name;
    HeadForm form;
    double half;
    double cut;
    bool filled;
};

constexpr std::array kHeads{Head{"", HeadForm::Triangle, 1.0 / 6, 1, true},
                            Head{"CLOSEDBLANK", HeadForm::Triangle, 1.0 / 6, 1, false},
                            Head{"CLOSED", HeadForm::Triangle, 1.0 / 6, 0, false},
                            Head{"OPEN", HeadForm::Open, 1.0 / 6, 0, false},
                            Head{"OPEN30", HeadForm::Open, 0.268, 0, false},
                            Head{"OPEN90", HeadForm::Open, 1, 0, false},
                            Head{"DOT", HeadForm::Dot, 0.5, 0.5, true},
                            Head{"DOTSMALL", HeadForm::Dot, 0.25, 0, true},
                            Head{"DOTBLANK", HeadForm::Dot, 0.5, 0.5, false},
                            Head{"SMALL", HeadForm::Dot, 0.25, 0.25, false},
                            Head{"ORIGIN", HeadForm::Dot, 0.5, 0, false},
                            Head{"ORIGIN2", HeadForm::Dot, 0.5, 0.5, false},
                            Head{"BOXFILLED", HeadForm::Box, 0.5, 0.5, true},
                            Head{"BOXBLANK", HeadForm::Box, 0.5, 0.5, false},
                            Head{"OBLIQUE", HeadForm::Tick, 0.5, 0, false},
                            Head{"ARCHTICK", HeadForm::WideTick, 0.5, 0, true},
                            Head{"DATUMFILLED", HeadForm::Datum, 0.577, 1, true},
                            Head{"DATUMBLANK", HeadForm::Datum, 0.577, 1, false},
                            Head{"INTEGRAL", HeadForm::Integral, 0.5, 0, false},
                            Head{"NONE", HeadForm::Nothing, 0, 0, false}};

const Head* FindHead(std::string_view name)
{
    for (const Head& head : kHeads) {
        if (head.name == name) {
            return &head;
        }
    }
    return nullptr;
}

void DrawHead(NotePicture& picture, const Head& head, Vec2 tip, Vec2 along, const drawing::Entity& pen)
{
    const Vec2 across = Left(along) * head.half;
    switch (head.form) {
    case HeadForm::Triangle:
        picture.AddPolygon({tip, tip - along - across, tip - along + across}, pen, head.filled);
        break;
    case HeadForm::Datum:
        picture.AddPolygon({tip + across, tip - across, tip - along}, pen, head.filled);
        break;
    case HeadForm::Open: {
        Path& path = picture.Add(pen);
        path.MoveTo(tip - along + across);
        path.LineTo(tip);
        path.LineTo(tip - along - across);
        break;
    }
    case HeadForm::Dot:
        AppendEllipse(picture.Add(pen, head.filled), tip, along * head.half, across);
        break;
    case HeadForm::Box: {
        const Vec2 a = along * head.half;
        picture.AddPolygon({tip - a - across, tip + a - across, tip + a + across, tip - a + across}, pen, head.filled);
        break;
    }
    case HeadForm::Tick:
        picture.AddLine(tip - along * head.half - across, tip + along * head.half + across, pen);
        break;
    case HeadForm::WideTick: {
        constexpr double kHalfWidth = 0.053; // of a stroke 0.15 wide, along each axis
        const Vec2 end = along * head.half + across;
        const Vec2 wide = (along - Left(along)) * kHalfWidth;
        picture.AddPolygon({tip - end - wide, tip + end - wide, tip + end + wide, tip - end + wide}, pen, true);
        break;
    }
    case HeadForm::Integral: {
        const Vec2 reach = Left(along) * head.half;
        Path& path = picture.Add(pen);
        path.MoveTo(tip - reach - along * 0.2);
        path.CubicTo(tip - reach + along * 0.1, tip - reach * 0.5, tip);
        path.CubicTo(tip + reach * 0.5, tip + reach - along * 0.1, tip + reach + along * 0.2);
        break;
    }
    case HeadForm::Nothing:
        break;
    }
}

} // namespace

double AddArrow(NotePicture& picture, const NoteTools& tools, const drawing::ArrowHead& head, Vec2 tip, Vec2 direction,
                double size, const drawing::Entity& pen)
{
    const Vec2 along = Unit(direction) * size;
    if (along == Vec2{} || !(size > 0)) {
        return 0;
    }
    const Head* known = FindHead(head.name);
    const double cut = (known != nullptr ? known->cut : 1) * size;
    if (head.block != drawing::kNoBlock && !tools.drawing.EntitiesOf(head.block).empty()) {
        drawing::InsertData insert;
        insert.block = head.block;
        insert.insertion = {tip.x, tip.y, picture.elevation};
        insert.extrusion = picture.extrusion;
        insert.scale = {size, size, size};
        insert.rotation = AngleOf(direction);
        insert.color = pen.color;
        insert.trueColor = pen.trueColor;
        insert.linetype = pen.linetype;
        insert.lineweight = pen.lineweight;
        picture.copies.push_back({std::move(insert), {}});
        return cut;
    }
    DrawHead(picture, known != nullptr ? *known : kHeads[0], tip, along, pen);
    return cut;
}

} // namespace sm::render
