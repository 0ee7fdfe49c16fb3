// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/LineLayout.h"

#include "base/Numbers.h"
#include "base/Units.h"
#include "base/text/Utf8.h"
#include "drawing/Drawing.h"
#include "drawing/entities/Texts.h"

#include <cmath>

namespace sm::render {

namespace {

enum Horizontal : std::int32_t { kLeft, kCenter, kRight, kAligned, kMiddle, kFit };
enum Vertical : std::int32_t { kBaseline, kBottom, kMiddleLine, kTop };

/// From one letter's base line to the next in text that runs down.
constexpr double kStepDown = 1.5;

/// The corner of a line's box that stands on the alignment point.
Vec2 AnchorOf(const drawing::TextData& text, double width, double height, double descent, double depth)
{
    Vec2 anchor;
    if (text.horizontal == kMiddle) {
        return {width / 2, (height - depth) / 2}; // the middle of the ink, descenders included
    }
    anchor.x = text.horizontal == kCenter ? width / 2 : text.horizontal == kRight ? width : 0;
    anchor.y = text.vertical == kBottom       ? -descent
               : text.vertical == kMiddleLine ? height / 2
               : text.vertical == kTop        ? height
                                              : 0;
    return anchor;
}

Matrix2 Turned(double radians, Vec2 origin)
{
    return {std::cos(radians), std::sin(radians), -std::sin(radians), std::cos(radians), origin.x, origin.y};
}

struct Stretch {
    double height = 1, width = 1;
};

/// Aligned text grows in proportion, fitted text in width, until it spans its two points.
Stretch StretchOf(const drawing::TextData& text, double width, double span)
{
    if (width <= 0 || span <= 0) {
        return {};
    }
    return text.horizontal == kAligned ? Stretch{span / width, 1} : Stretch{1, span / width};
}

double HeightOf(const drawing::Drawing& drawing, const drawing::TextData& text)
{
    if (base::IsSize(text.height)) {
        return text.height;
    }
    const auto& styles = drawing.TextStyles();
    const double fixed = text.style < styles.size() ? styles[text.style].fixedHeight : 0;
    const double header = drawing.HeaderReal("$TEXTSIZE", 2.5);
    return base::IsSize(fixed) ? fixed : base::IsSize(header) ? header : 2.5;
}

} // namespace

double LineLayout::SetAcross(const TypeStyle& style)
{
    double x = 0;
    TypeStyle own = style;
    for (const CodedPiece& piece : m_pieces) {
        own.under = piece.under;
        own.over = piece.over;
        own.strike = piece.strike;
        x += m_setter.Set(piece.text, own, {x, 0});
    }
    return x;
}

/// Letters below each other, centred on x = 0, the first one's top at y = 0. Returns the column's height.
double LineLayout::SetDown(const TypeStyle& style)
{
    double y = -style.height;
    std::size_t count = 0;
    for (const CodedPiece& piece : m_pieces) {
        for (std::size_t at = 0; at < piece.text.size(); ++count) {
            const std::size_t from = at;
            base::NextCharacter(piece.text, at);
            const std::string_view letter = std::string_view(piece.text).substr(from, at - from);
            m_setter.Set(letter, style, {-m_setter.Measure(letter, style) / 2, y});
            y -= kStepDown * style.height;
        }
    }
    return count == 0 ? 0 : style.height * (1 + kStepDown * static_cast<double>(count - 1));
}

double LineLayout::DepthOf(const TypeStyle& style)
{
    double depth = 0;
    for (const CodedPiece& piece : m_pieces) {
        depth = std::max(depth, m_setter.Depth(piece.text, style));
    }
    return depth;
}

double LineLayout::BehindLast(const TypeStyle& style)
{
    for (std::size_t i = m_pieces.size(); i > 0; --i) {
        if (!m_pieces[i - 1].text.empty()) {
            return m_setter.Behind(m_pieces[i - 1].text, style);
        }
    }
    return 0;
}

void LineLayout::Lay(const drawing::Drawing& drawing, const drawing::TextData& text)
{
    m_parts.Begin();
    LaidText& result = m_parts.Result();
    result.elevation = text.insertion.z;
    result.extrusion = text.extrusion;
    DecodeLine(text.text, m_pieces);

    TypeStyle style;
    style.font = &m_fonts.ForStyle(drawing, text.style);
    style.height = HeightOf(drawing, text);
    style.width = base::IsSize(text.widthFactor) ? text.widthFactor : 1;
    style.oblique = std::isfinite(text.oblique) ? text.oblique : 0;
    const bool spans = (text.horizontal == kAligned || text.horizontal == kFit) && text.hasAlignment;
    Vec2 base{text.insertion.x, text.insertion.y};
    double angle = base::RadiansOf(text.rotation);
    const bool atAlignment = text.hasAlignment && !spans && (text.horizontal != kLeft || text.vertical != kBaseline);
    if (atAlignment) {
        base = {text.alignment.x, text.alignment.y};
    }
    if (spans) {
        const Vec2 along{text.alignment.x - base.x, text.alignment.y - base.y};
        const double span = std::hypot(along.x, along.y);
        double width = -BehindLast(style);
        for (const CodedPiece& piece : m_pieces) {
            width += m_setter.Measure(piece.text, style);
        }
        const Stretch stretch = StretchOf(text, width, span);
        style.height *= stretch.height;
        style.width *= stretch.width;
        angle = span > 0 ? std::atan2(along.y, along.x) : angle;
        base = text.backward ? Vec2{text.alignment.x, text.alignment.y} : base;
    }
    const double descent = style.font->Descent() * style.height;
    const Matrix2 mirror{text.backward ? -1.0 : 1.0, 0, 0, text.upsideDown ? -1.0 : 1.0, 0, 0};
    const Matrix2 turned = Compose(Turned(std::isfinite(angle) ? angle : 0, base), mirror);

    const auto& styles = drawing.TextStyles();
    if (text.style < styles.size() && styles[text.style].vertical) {
        const double length = SetDown(style);
        const double up = text.horizontal == kCenter || text.horizontal == kMiddle ? length / 2
                          : text.horizontal == kRight                              ? length
                                                                                   : 0;
        Box2 box;
        box.Add(Vec2{-style.height / 2, -length});
        box.Add(Vec2{style.height / 2, 0});
        m_parts.Place(Compose(turned, {1, 0, 0, 1, 0, up}), length > 0 ? box : Box2{});
        return;
    }
    const double width = std::max(0.0, SetAcross(style) - BehindLast(style));
    const double depth = text.horizontal == kMiddle ? DepthOf(style) : 0;
    const Vec2 anchor = AnchorOf(text, width, style.height, descent, depth);
    Box2 box;
    if (width > 0) {
        box.Add(Vec2{0, -descent});
        box.Add(Vec2{width, style.height});
    }
    m_parts.Place(Compose(turned, {1, 0, 0, 1, -anchor.x, -anchor.y}), box);
}

} // namespace sm::render
