// SPDX-License-Identifier: GPL-3.0-or-later
#include "context/Strokes.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/MLines.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/TableEntities.h"
#include "families/Families.h"
#include "families/Placing.h"
#include "families/Texts.h"
#include "geometry/MappedPath.h"
#include "notes/NotePicture.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

/// What notes share: their picture of lines, areas, texts and blocks.
class NotePainter : public EntityPainter {
public:
    using EntityPainter::EntityPainter;

protected:
    template <class Data> Outcome PaintNote(const drawing::EntityRecord& record, const Frame& frame);
    template <class Data> Outcome PaintStyledNote(const drawing::EntityRecord& record, const Frame& frame);

private:
    Outcome PaintPicture(const NotePicture& picture, const drawing::Entity& entity, const drawing::EntityRecord& record,
                         const Frame& frame);
    void PaintShapes(const NotePicture& picture, const Frame& frame, const Inherited& inherited);
    Outcome PaintCopy(const NotePicture::Copy& copy, const Frame& frame, const Inherited& inherited);
    Outcome PaintAttributes(const NotePicture::Copy& copy, const Frame& inner);
    Attributes m_attributes{m_context, m_walk};
    drawing::TextData m_text;
};

void NotePainter::PaintShapes(const NotePicture& picture, const Frame& frame, const Inherited& inherited)
{
    const Matrix2 plane = PlaneOf(frame.toPaper, picture.extrusion, picture.elevation);
    for (const NotePicture::Shape& shape : picture.shapes) {
        m_context.style = Resolve(shape.pen, *m_context.layer, inherited);
        m_path.Clear();
        AppendMapped(m_path, shape.path, plane);
        if (shape.filled) {
            m_ink.Fill(m_path, m_context.style.color, FillRule::NonZero);
        } else {
            StrokePath(m_context);
        }
    }
    for (const drawing::MTextData& text : picture.texts) {
        m_context.style = Resolve(text, *m_context.layer, inherited);
        DrawMText(m_context, text);
    }
}

/// The values that the note gives to the attributes of its block.
Outcome NotePainter::PaintAttributes(const NotePicture::Copy& copy, const Frame& inner)
{
    Outcome best = Outcome::NotReached;
    for (const drawing::EntityRecord& record : m_drawing.EntitiesOf(copy.insert.block)) {
        if (record.kind != drawing::EntityKind::Attdef) {
            continue;
        }
        drawing::TextData& text = m_text;
        Read(m_drawing, record, text);
        const auto value = std::find_if(copy.attributes.begin(), copy.attributes.end(),
                                        [&](const auto& one) { return one.definition == text.handle; });
        if (value == copy.attributes.end() || text.handle == 0) {
            continue;
        }
        text.text = value->text;
        text.embeddedMText.reset();
        best = std::max(best, m_attributes.PaintText(text, record, inner));
    }
    return best;
}

Outcome NotePainter::PaintCopy(const NotePicture::Copy& copy, const Frame& frame, const Inherited& inherited)
{
    if (!m_context.CanEnter(copy.insert.block)) {
        return Outcome::NotDrawn;
    }
    const OpenBlock open(m_context, copy.insert.block);
    Frame inner;
    inner.inherited = {Resolve(copy.insert, m_context.layers->Of(inherited.layer), inherited), inherited.layer};
    inner.dashScale = frame.dashScale * std::abs(copy.insert.scale.x);
    inner.toPaper = Compose(frame.toPaper, Placing(copy.insert, m_drawing.Blocks()[copy.insert.block].base, 0, 0));
    const Outcome best = m_walk.PaintBlock(copy.insert.block, inner);
    return std::max(best, PaintAttributes(copy, inner));
}

Outcome NotePainter::PaintPicture(const NotePicture& picture, const drawing::Entity& entity,
                                  const drawing::EntityRecord& record, const Frame& frame)
{
    m_context.Enter(entity, record, frame);
    const Inherited inherited{m_context.style, EffectiveLayer(entity, frame.inherited)};
    PaintShapes(picture, frame, inherited);
    Outcome best = m_ink.End() ? Outcome::Drawn : Outcome::OffPage;
    for (const NotePicture::Copy& copy : picture.copies) {
        best = std::max(best, PaintCopy(copy, frame, inherited));
    }
    return picture.Empty() ? Outcome::NotDrawn : best;
}

template <class Data> Outcome NotePainter::PaintNote(const drawing::EntityRecord& record, const Frame& frame)
{
    Data note;
    Read(m_drawing, record, note);
    if (m_context.Hidden(note, frame)) {
        return Outcome::Hidden;
    }
    NotePicture picture;
    Build(note, {m_drawing, m_context.text}, picture);
    return PaintPicture(picture, note, record, frame);
}

template <class Data> Outcome NotePainter::PaintStyledNote(const drawing::EntityRecord& record, const Frame& frame)
{
    Data note;
    Read(m_drawing, record, note);
    if (m_context.Hidden(note, frame)) {
        return Outcome::Hidden;
    }
    drawing::DimStyle style;
    Read(m_drawing, record, style);
    NotePicture picture;
    Build(note, style, {m_drawing, m_context.text}, picture);
    return PaintPicture(picture, note, record, frame);
}

template <class Data> class Notes final : public NotePainter {
public:
    using NotePainter::NotePainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override
    {
        return PaintNote<Data>(record, frame);
    }
};

template <class Data> class StyledNotes final : public NotePainter {
public:
    using NotePainter::NotePainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override
    {
        return PaintStyledNote<Data>(record, frame);
    }
};

using Leaders = StyledNotes<drawing::LeaderData>;
using Tolerances = StyledNotes<drawing::ToleranceData>;
using MultiLeaders = Notes<drawing::MultiLeaderData>;
using MLines = Notes<drawing::MLineData>;
using Tables = Notes<drawing::TableData>;

class Dimensions final : public NotePainter {
public:
    using NotePainter::NotePainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override;
};

Outcome Dimensions::Paint(const drawing::EntityRecord& record, const Frame& frame)
{
    drawing::DimensionData dimension;
    Read(m_drawing, record, dimension);
    if (m_context.Hidden(dimension, frame)) {
        return Outcome::Hidden;
    }
    if (m_drawing.EntitiesOf(dimension.block).empty()) { // no picture: the measurements themselves
        return PaintStyledNote<drawing::DimensionData>(record, frame);
    }
    if (!m_context.CanEnter(dimension.block)) {
        return Outcome::NotDrawn;
    }
    // The block holds the dimension's picture where it stood when it was drawn; copies share it at an offset of theirs.
    Frame inner = frame;
    const Vec3 offset = OcsAxes(dimension.extrusion).Apply(dimension.blockOffset);
    inner.toPaper = Compose(frame.toPaper, Matrix3{.origin = offset});
    inner.inherited = {
        Resolve(dimension, m_context.layers->Of(EffectiveLayer(dimension, frame.inherited)), frame.inherited),
        EffectiveLayer(dimension, frame.inherited), m_context.HidingLayer(dimension, frame, false)};
    const OpenBlock open(m_context, dimension.block);
    const Outcome best = m_walk.PaintBlock(dimension.block, inner);
    return best == Outcome::NotReached ? Outcome::OffPage : best;
}

} // namespace

std::unique_ptr<EntityPainter> MakeLeaders(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Leaders>(context, walk);
}

std::unique_ptr<EntityPainter> MakeTolerances(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Tolerances>(context, walk);
}

std::unique_ptr<EntityPainter> MakeMultiLeaders(PaintContext& context, IWalk& walk)
{
    return std::make_unique<MultiLeaders>(context, walk);
}

std::unique_ptr<EntityPainter> MakeMLines(PaintContext& context, IWalk& walk)
{
    return std::make_unique<MLines>(context, walk);
}

std::unique_ptr<EntityPainter> MakeTables(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Tables>(context, walk);
}

std::unique_ptr<EntityPainter> MakeDimensions(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Dimensions>(context, walk);
}

} // namespace sm::render
