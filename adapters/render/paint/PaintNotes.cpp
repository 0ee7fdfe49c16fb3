#include "drawing/EntityKinds.h"
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/MLines.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/TableEntities.h"
#include "drawing/entities/Texts.h"
#include "notes/NotePicture.h"
#include "paint/Painter.h"
#include "paint/PainterBuffers.h"

namespace sm::render {

void Painter::PaintNoteShapes(const NotePicture& picture, const Frame& frame, const Inherited& inherited)
{
    const Matrix2 plane = PlaneOf(frame.toPaper, picture.extrusion, picture.elevation);
    for (const NotePicture::Shape& shape : picture.shapes) {
        m_style = Resolve(shape.pen, *m_layer, inherited);
        m_path.Clear();
        m_path.verbs = shape.path.verbs;
        for (const Vec2 point : shape.path.points) {
            m_path.points.push_back(plane.Apply(point));
        }
        if (shape.filled) {
            m_ink.Fill(m_path, m_style.color, FillRule::NonZero);
        } else {
            StrokePath();
        }
    }
    for (const drawing::MTextData& text : picture.texts) {
        m_style = Resolve(text, *m_layer, inherited);
        Draw(text, drawing::EntityKind::MText);
    }
}

/// The values that the note gives to the attributes of its block.
Outcome Painter::PaintNoteAttributes(const NotePicture::Copy& copy, const Frame& inner)
{
    Outcome best = Outcome::NotReached;
    for (const drawing::EntityRecord& record : m_drawing.EntitiesOf(copy.insert.block)) {
        if (record.kind != drawing::EntityKind::Attdef) {
            continue;
        }
        drawing::TextData& text = m_buffers->text;
        Read(m_drawing, record, text);
        const auto value = std::find_if(copy.attributes.begin(), copy.attributes.end(),
                                        [&](const auto& one) { return one.definition == text.handle; });
        if (value == copy.attributes.end() || text.handle == 0) {
            continue;
        }
        text.text = value->text;
        text.embeddedMText.reset();
        best = std::max(best, PaintReadAttribute(record, inner));
    }
    return best;
}

Outcome Painter::PaintNoteCopy(const NotePicture::Copy& copy, const Frame& frame, const Inherited& inherited)
{
    if (!CanEnter(copy.insert.block)) {
        return Outcome::NotDrawn;
    }
    const OpenBlock open(m_openBlocks, copy.insert.block);
    Frame inner;
    inner.inherited = {Resolve(copy.insert, m_layers->Of(inherited.layer), inherited), inherited.layer};
    inner.dashScale = frame.dashScale * std::abs(copy.insert.scale.x);
    inner.toPaper = Compose(frame.toPaper, Placing(copy.insert, m_drawing.Blocks()[copy.insert.block].base, 0, 0));
    const Outcome best = PaintBlock(copy.insert.block, inner);
    return std::max(best, PaintNoteAttributes(copy, inner));
}

Outcome Painter::PaintPicture(const NotePicture& picture, const drawing::Entity& entity,
                              const drawing::EntityRecord& record, const Frame& frame)
{
    Enter(entity, record, frame);
    const Inherited inherited{m_style, EffectiveLayer(entity, frame.inherited)};
    PaintNoteShapes(picture, frame, inherited);
    Outcome best = m_ink.End() ? Outcome::Drawn : Outcome::OffPage;
    for (const NotePicture::Copy& copy : picture.copies) {
        best = std::max(best, PaintNoteCopy(copy, frame, inherited));
    }
    return picture.Empty() ? Outcome::NotDrawn : best;
}

template <class Data> Outcome Painter::PaintNote(const drawing::EntityRecord& record, const Frame& frame)
{
    Data note;
    Read(m_drawing, record, note);
    if (Hidden(note, frame)) {
        return Outcome::Hidden;
    }
    NotePicture picture;
    Build(note, {m_drawing, m_text}, picture);
    return PaintPicture(picture, note, record, frame);
}

template <class Data> Outcome Painter::PaintStyledNote(const drawing::EntityRecord& record, const Frame& frame)
{
    Data note;
    Read(m_drawing, record, note);
    if (Hidden(note, frame)) {
        return Outcome::Hidden;
    }
    drawing::DimStyle style;
    Read(m_drawing, record, style);
    NotePicture picture;
    Build(note, style, {m_drawing, m_text}, picture);
    return PaintPicture(picture, note, record, frame);
}

Outcome Painter::PaintNote(const drawing::EntityRecord& record, const Frame& frame)
{
    using drawing::EntityKind;
    switch (record.kind) {
    case EntityKind::Leader:
        return PaintStyledNote<drawing::LeaderData>(record, frame);
    case EntityKind::Dimension:
        return PaintStyledNote<drawing::DimensionData>(record, frame);
    case EntityKind::Tolerance:
        return PaintStyledNote<drawing::ToleranceData>(record, frame);
    case EntityKind::MultiLeader:
        return PaintNote<drawing::MultiLeaderData>(record, frame);
    case EntityKind::MLine:
        return PaintNote<drawing::MLineData>(record, frame);
    case EntityKind::Table:
        return PaintNote<drawing::TableData>(record, frame);
    default:
        return Outcome::NotDrawn;
    }
}

} // namespace sm::render
