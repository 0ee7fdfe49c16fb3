// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/Texts.h"

#include "context/LaidTexts.h"
#include "drawing/EntityKinds.h"
#include "families/Families.h"
#include "ink/Palette.h"

#include <algorithm>

namespace sm::render {

namespace {

/// The four corners of a box, each side moved outwards.
std::vector<Vec2> Widened(const std::vector<Vec2>& corners, double margin)
{
    std::vector<Vec2> wide = corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        for (const std::size_t other : {(i + 1) % 4, (i + 3) % 4}) {
            const Vec2 side = corners[i] - corners[other];
            const double length = Length(side);
            wide[i] = wide[i] + (length > 0 ? side * (margin / length) : Vec2{});
        }
    }
    return wide;
}

// The patch behind an MTEXT: larger than its box by a part of the letters' height (DXF reference, groups 90, 45, 63). A
// frame runs at the same distance in the colour of the text.
void DrawMask(PaintContext& context, const drawing::MTextData& text, const LaidText& laid)
{
    constexpr std::int32_t kFilled = 1, kPaperColored = 2, kFramed = 16;
    const bool filled = (text.backgroundFlags & (kFilled | kPaperColored)) != 0;
    const bool framed = (text.backgroundFlags & kFramed) != 0;
    if ((!filled && !framed) || laid.outline.size() != 4 || laid.frame.size() != 4) {
        return;
    }
    const double margin = std::max(0.0, text.backgroundScale - 1) * text.height;
    context.path.Clear();
    AppendCorners(context.path, Widened(laid.frame, margin),
                  PlaneOf(context.frame->toPaper, laid.extrusion, laid.elevation));
    if (filled) {
        constexpr std::uint32_t kWhite = 0xFFFFFF;
        const bool colored = (text.backgroundFlags & kPaperColored) == 0;
        const std::uint32_t color = text.backgroundTrueColor.value_or(PaperColor(text.backgroundColor));
        context.ink.Fill(context.path, colored ? color : kWhite, FillRule::NonZero);
    }
    if (framed) {
        context.ink.Stroke(context.path, context.StrokePen());
    }
}

class Texts final : public LeafPainter<drawing::TextData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::TextData& text, drawing::EntityKind /*kind*/) override
    {
        if (text.isElsewhere)
            return false;
        DrawLaidText(m_context, m_context.text.Lay(m_drawing, text));
        return true;
    }
};

class MTexts final : public LeafPainter<drawing::MTextData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::MTextData& text, drawing::EntityKind /*kind*/) override
    {
        DrawMText(m_context, text);
        return true;
    }
};

} // namespace

void DrawMText(PaintContext& context, const drawing::MTextData& text)
{
    const LaidText& laid = context.text.Lay(context.drawing, text);
    DrawMask(context, text, laid);
    DrawLaidText(context, laid);
}

Outcome Attributes::Paint(const drawing::EntityRecord& record, const Frame& frame)
{
    Read(m_drawing, record, m_text);
    if (record.kind == drawing::EntityKind::Attdef) {
        if (StandsLoose()) {
            return PaintTag(record, frame);
        }
        // In a block a definition shows only where it is constant: inserts carry no attribute for it.
        constexpr std::int32_t kConstant = 2;
        if ((m_text.attributeFlags & kConstant) == 0) {
            return Outcome::Hidden;
        }
    }
    return PaintText(m_text, record, frame);
}

// In a space of the drawing itself; a reference's model is a block here.
bool Attributes::StandsLoose() const
{
    const auto& layouts = m_drawing.Layouts();
    const auto isSpace = [&](const drawing::Layout& layout) { return layout.block == m_context.openBlocks.back(); };
    return m_context.openBlocks.empty() ||
           (m_context.xref.layers.empty() && std::any_of(layouts.begin(), layouts.end(), isSpace));
}

// A definition that belongs to no block yet shows its tag, whatever its attributes shall look like.
Outcome Attributes::PaintTag(const drawing::EntityRecord& record, const Frame& frame)
{
    if (m_context.Hidden(m_text, frame)) {
        return Outcome::Hidden;
    }
    m_context.Enter(m_text, record, frame);
    m_text.text = m_text.tag;
    DrawLaidText(m_context, m_context.text.Lay(m_drawing, m_text));
    return m_ink.End() ? Outcome::Drawn : Outcome::OffPage;
}

Outcome Attributes::PaintText(const drawing::TextData& text, const drawing::EntityRecord& record, const Frame& frame)
{
    constexpr std::int32_t kInvisible = 1;
    const std::int32_t mode = m_context.switches.attributes;
    const bool shown = mode == 2 || (mode != 0 && (text.attributeFlags & kInvisible) == 0);
    if (!shown || m_context.Hidden(text, frame)) {
        return Outcome::Hidden;
    }
    m_context.Enter(text, record, frame);
    if (text.embeddedMText) {
        Read(m_drawing, *text.embeddedMText, m_mtext);
        DrawMText(m_context, m_mtext);
    } else {
        DrawLaidText(m_context, m_context.text.Lay(m_drawing, text));
    }
    return m_ink.End() ? Outcome::Drawn : Outcome::OffPage;
}

std::unique_ptr<EntityPainter> MakeTexts(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Texts>(context, walk);
}

std::unique_ptr<EntityPainter> MakeMTexts(PaintContext& context, IWalk& walk)
{
    return std::make_unique<MTexts>(context, walk);
}

std::unique_ptr<EntityPainter> MakeAttributes(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Attributes>(context, walk);
}

} // namespace sm::render
