// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Units.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/Texts.h"
#include "entities/EntityTags.h"
#include "entities/SpaceVectors.h"

#include <cmath>
#include <utility>

namespace sm::drawing {

namespace {

void Reset(TextData& data)
{
    std::string text = std::move(data.text), tag = std::move(data.tag), prompt = std::move(data.prompt);
    data = {};
    for (std::string* kept : {&text, &tag, &prompt})
        kept->clear();
    data.text = std::move(text);
    data.tag = std::move(tag);
    data.prompt = std::move(prompt);
}

void TakeGeneration(TextData& data, std::int32_t flags)
{
    data.backward = (flags & 2) != 0;
    data.upsideDown = (flags & 4) != 0;
}

bool TakeTextTag(const EntityTags& tags, TextData& data)
{
    switch (tags.Code()) {
    case 1:
        DecodeText(tags.Source(), tags.RawText(), data.text);
        break;
    case 7:
        data.style = tags.Source().StyleOf(tags.Name());
        break;
    case 40:
        data.height = tags.Real();
        break;
    case 41:
        data.widthFactor = tags.Real();
        break;
    case 50:
        data.rotation = tags.Real();
        break;
    case 51:
        data.oblique = tags.Real();
        break;
    case 71:
        TakeGeneration(data, tags.Integer());
        break;
    case 72:
        data.horizontal = tags.Integer();
        break;
    default:
        return false;
    }
    return true;
}

bool TakeAttributeTag(const EntityTags& tags, TextData& data)
{
    switch (tags.Code()) {
    case 2:
        tags.Source().text->Decode(tags.Name(), data.tag);
        break;
    case 3:
        tags.Source().text->Decode(tags.RawText(), data.prompt);
        break;
    case 70:
        data.attributeFlags = tags.Integer();
        break;
    case 74:
        data.vertical = tags.Integer();
        break;
    default:
        return false;
    }
    return true;
}

/// The tags behind "101 Embedded Object": those of the attribute's own MTEXT.
EntityRecord EmbeddedRecord(const TagCursor& tags, const EntityRecord& record)
{
    EntityRecord embedded = record;
    embedded.kind = EntityKind::MText;
    embedded.nameIndex = 0;
    embedded.begin = tags.End();
    embedded.length = static_cast<std::uint32_t>(record.begin + record.length - tags.End());
    embedded.line = tags.Line();
    return embedded;
}

/// Older files keep the lines of a multi-line attribute in a record of its own or leave them out; newer ones embed an
/// MTEXT object, whose text begins with its properties (10, 11, 41, 71, ...).
void TakeEmbedded(const EntityTags& tags, TextData& data)
{
    const TagCursor& cursor = tags.Cursor();
    if (cursor.Code() == 101 && tags.Record().kind != EntityKind::Text)
        data.embeddedMText = EmbeddedRecord(cursor, tags.Record());
}

/// The same place in the plane of `extrusion`, by the arbitrary axis rule of the DXF reference.
Vec3 InPlaneOf(Vec3 point, Vec3 extrusion)
{
    constexpr double kSmall = 1.0 / 64;
    const bool isNearlyZ = std::abs(extrusion.x) < kSmall && std::abs(extrusion.y) < kSmall;
    const Vec3 x = Cross(isNearlyZ ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, extrusion);
    const double length = Length(x), height = Length(extrusion);
    if (length == 0 || height == 0)
        return point;
    const Vec3 y = Cross(extrusion, x);
    return {Dot(point, x) / length, Dot(point, y) / (length * height), Dot(point, extrusion) / height};
}

/// RTEXT: its place is one of the world, its rotation in radians, and bit 1 of its flags tells an expression from a
/// file's name (DXF reference).
void ReadRemote(EntityTags& tags, TextData& data)
{
    constexpr std::int32_t kExpression = 1;
    while (tags.Next())
        if (tags.Code() == 70)
            data.attributeFlags = tags.Integer();
        else if (!tags.Take(10, data.insertion) && !TakeTextTag(tags, data))
            tags.TakeCommon(data);
    data.insertion = InPlaneOf(data.insertion, data.extrusion);
    data.rotation *= 180 / base::kPi;
    data.isElsewhere = (data.attributeFlags & kExpression) == 0 || data.text.find("$(") != std::string::npos;
    data.attributeFlags = 0;
}

double* ArcTextReal(ArcTextData& data, int code)
{
    switch (code) {
    case 40:
        return &data.radius;
    case 41:
        return &data.widthFactor;
    case 42:
        return &data.height;
    case 43:
        return &data.spacing;
    case 44:
        return &data.offset;
    case 45:
        return &data.rightOffset;
    case 46:
        return &data.leftOffset;
    case 50:
        return &data.startAngle;
    case 51:
        return &data.endAngle;
    default:
        return nullptr;
    }
}

bool TakeArcTextFlag(const EntityTags& tags, ArcTextData& data)
{
    constexpr std::int32_t kInward = 2, kConcave = 2;
    switch (tags.Code()) {
    case 70:
        data.isReversed = tags.Integer() != 0;
        break;
    case 71:
        data.isInward = tags.Integer() == kInward;
        break;
    case 72:
        data.placing = tags.Integer();
        break;
    case 73:
        data.isInside = tags.Integer() == kConcave;
        break;
    case 76:
        data.isUnderlined = tags.Integer() != 0;
        break;
    default:
        return false;
    }
    return true;
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, ArcTextData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (double* const real = ArcTextReal(data, tags.Code()))
            *real = tags.Real();
        else if (!tags.Take(10, data.insertion) && !TakeArcTextFlag(tags, data) && !TakeTextTag(tags, data))
            tags.TakeCommon(data);
    }
}

void Read(const Drawing& drawing, const EntityRecord& record, TextData& data)
{
    Reset(data);
    EntityTags tags(drawing.Tags(), record);
    if (record.kind == EntityKind::RemoteText)
        return ReadRemote(tags, data);
    const bool attribute = record.kind != EntityKind::Text;
    bool hasFlags = false, inAttribute = false;
    while (tags.Next()) {
        // Converters write the kind of an embedded text as a second group 70.
        if (attribute && tags.Code() == 70 && std::exchange(hasFlags, true))
            continue;
        // Group 71 of the attribute's own class is the kind of a multi-line one.
        inAttribute = inAttribute || (tags.Code() == 100 && tags.Name().starts_with("AcDbAttribute"));
        if (inAttribute && tags.Code() == 71)
            continue;
        if (tags.Take(10, data.insertion))
            continue;
        if (tags.Take(11, data.alignment))
            data.hasAlignment = true;
        else if (attribute && TakeAttributeTag(tags, data))
            continue;
        else if (!attribute && tags.Code() == 73)
            data.vertical = tags.Integer();
        else if (!TakeTextTag(tags, data))
            tags.TakeCommon(data);
    }
    TakeEmbedded(tags, data);
}

} // namespace sm::drawing
