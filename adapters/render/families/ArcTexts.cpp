// SPDX-License-Identifier: GPL-3.0-or-later
// Texts along arcs: each letter is a text of its own, whose base line touches a circle around the arc's centre.
#include "base/Units.h"
#include "context/LaidTexts.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/Texts.h"
#include "families/ArcLetters.h"
#include "families/Families.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

namespace sm::render {

namespace {

/// The circle that the base lines touch. The offset lies between the arc and whatever part of a letter is next to it.
double BaseRadius(const drawing::ArcTextData& text)
{
    const double edge = text.radius + (text.isInside ? -text.offset : text.offset);
    // Tops that point to the arc: it is they that touch its edge.
    const bool topsAtEdge = text.isInside != text.isInward;
    return topsAtEdge ? edge + (text.isInside ? -text.height : text.height) : edge;
}

double SweepOf(const drawing::ArcTextData& text)
{
    constexpr double kFull = 2 * std::numbers::pi;
    const double sweep = std::fmod(base::RadiansOf(text.endAngle - text.startAngle), kFull);
    return sweep > 0 ? sweep : sweep + kFull;
}

bool CanBePlaced(const drawing::ArcTextData& text)
{
    const double radius = BaseRadius(text);
    return std::isfinite(radius) && std::isfinite(SweepOf(text)) && std::isfinite(text.spacing) &&
           std::isfinite(text.leftOffset) && std::isfinite(text.rightOffset) && text.radius > 0 && radius > 0 &&
           text.height > 0;
}

/// Where a row of letters begins, and what lies between two of them: lengths along the circle of the base lines.
struct Spread {
    double begin = 0, gap = 0;
};

Spread SpreadOf(const drawing::ArcTextData& text, const std::vector<ArcLetter>& letters, double length)
{
    enum Placing : std::int32_t { kOverAll = 1, kLeft, kRight };
    double widths = 0;
    for (const ArcLetter& letter : letters)
        widths += letter.width;
    const double gaps = static_cast<double>(letters.size()) - 1;
    const double room = length - text.leftOffset - text.rightOffset;
    if (text.placing == kOverAll && gaps > 0)
        return {text.leftOffset, (room - widths) / gaps};
    const double own = widths + text.spacing * gaps;
    const double begin = text.placing == kLeft ? 0 : text.placing == kRight ? room - own : (room - own) / 2;
    return {text.leftOffset + begin, text.spacing};
}

class ArcTexts final : public LeafPainter<drawing::ArcTextData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::ArcTextData& text, drawing::EntityKind /*kind*/) override
    {
        if (!CanBePlaced(text))
            return false;
        m_letter = text;
        m_letter.hasAlignment = false;
        m_letter.horizontal = m_letter.vertical = 0;
        CutUp(text);
        DrawLetters(text, BaseRadius(text));
        return true;
    }

    void CutUp(const drawing::ArcTextData& text)
    {
        m_letters = CutIntoLetters(text.text, text.isUnderlined);
        for (ArcLetter& letter : m_letters)
            letter.width = WidthOf(letter.text);
        if (text.isReversed)
            std::ranges::reverse(m_letters);
    }

    /// With what lies behind it: the distance that another letter moves by.
    double WidthOf(const std::string& letter)
    {
        m_letter.insertion = {};
        m_letter.rotation = 0;
        m_letter.text = letter;
        const auto& outline = m_context.text.Lay(m_drawing, m_letter).outline;
        return outline.size() == 4 ? outline[1].x - outline[0].x : 0;
    }

    /// Text whose tops point outwards is read clockwise, from the arc's end on.
    void DrawLetters(const drawing::ArcTextData& text, double radius)
    {
        const double sweep = SweepOf(text), quarter = std::numbers::pi / 2;
        const Spread spread = SpreadOf(text, m_letters, sweep * radius);
        double along = spread.begin;
        for (const ArcLetter& letter : m_letters) {
            const double turn = (along + letter.width / 2) / radius, start = base::RadiansOf(text.startAngle);
            const double angle = text.isInward ? start + turn : start + sweep - turn;
            DrawLetter(text, letter, radius, angle, text.isInward ? angle + quarter : angle - quarter);
            along += letter.width + spread.gap;
        }
    }

    void DrawLetter(const drawing::ArcTextData& text, const ArcLetter& letter, double radius, double angle,
                    double turned)
    {
        const double half = letter.width / 2;
        m_letter.insertion = text.insertion;
        m_letter.insertion.x += radius * std::cos(angle) - half * std::cos(turned);
        m_letter.insertion.y += radius * std::sin(angle) - half * std::sin(turned);
        m_letter.rotation = turned * 180 / std::numbers::pi;
        m_letter.text = letter.codes + letter.text;
        DrawLaidText(m_context, m_context.text.Lay(m_drawing, m_letter));
    }

    drawing::TextData m_letter; ///< the one at hand
    std::vector<ArcLetter> m_letters;
};

} // namespace

std::unique_ptr<EntityPainter> MakeArcTexts(PaintContext& context, IWalk& walk)
{
    return std::make_unique<ArcTexts>(context, walk);
}

} // namespace sm::render
