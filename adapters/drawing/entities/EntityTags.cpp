// SPDX-License-Identifier: GPL-3.0-or-later
#include "entities/EntityTags.h"

namespace sm::drawing {

namespace {

/// The high byte tells the kind: 0 by layer, 1 by block, 2 by value (DXF reference, common group 440).
void TakeTransparency(Entity& entity, std::int64_t value)
{
    const std::int64_t kind = value >> 24 & 0xFF;
    entity.transparencyByBlock = kind == 1;
    if (kind == 2)
        entity.transparency = static_cast<std::uint8_t>(value & 0xFF);
    else
        entity.transparency.reset();
}

void TakeColor(Entity& entity, std::int32_t value)
{
    if (value >= -256 && value <= 256)
        entity.color = static_cast<std::int16_t>(value < 0 ? -value : value);
}

} // namespace

EntityTags::EntityTags(const Drawing::Source& source, const EntityRecord& record)
    : m_source(source), m_record(source.Located(record)), m_tags(source.TagsOfLocated(m_record))
{
}

Handle HandleOf(const Drawing::Source& source, const EntityRecord& record)
{
    if (record.begin >= LateTags::kFirst && source.late != nullptr)
        return source.late->HandleOf(record.begin);
    EntityTags tags(source, record);
    while (tags.Next())
        if (tags.Code() == 5)
            return tags.HandleValue();
    return 0;
}

bool EntityTags::PassGroup()
{
    if (!m_tags.Name().starts_with('{'))
        return true;
    while (m_tags.Next() && m_tags.Code() != 102)
        if (m_tags.Code() == 0 || m_tags.Code() >= 1000)
            return false;
    return true;
}

void EntityTags::TakePlotStyle(Entity& entity) const
{
    using Source = Entity::StyleSource;
    if (Code() == 390) {
        entity.plotStyle = HandleValue();
        entity.plotStyleSource = Source::Own;
    } else if (const std::int32_t source = Integer(); source >= 0 && source <= static_cast<std::int32_t>(Source::Own)) {
        entity.plotStyleSource = static_cast<Source>(source);
    }
}

void EntityTags::TakeCommon(Entity& entity) const
{
    switch (Code()) {
    case 5:
        entity.handle = HandleValue();
        break;
    case 6:
        entity.linetype = m_source.LinetypeOf(Name());
        break;
    case 8:
        if (!Name().empty()) // some converters write an empty one in front of an embedded object
            entity.layer = m_source.LayerOf(Name());
        break;
    case 38:
        entity.elevation = Real();
        break;
    case 39:
        entity.thickness = Real();
        break;
    case 48:
        entity.linetypeScale = Real();
        break;
    case 60:
        entity.invisible = Integer() == 1;
        break;
    case 62:
        TakeColor(entity, Integer());
        break;
    case 210:
        entity.extrusion.x = Real();
        break;
    case 220:
        entity.extrusion.y = Real();
        break;
    case 230:
        entity.extrusion.z = Real();
        break;
    case 330:
        if (entity.owner == 0)
            entity.owner = HandleValue();
        break;
    case 370:
        entity.lineweight = static_cast<std::int16_t>(Integer());
        break;
    case 380:
    case 390:
        TakePlotStyle(entity);
        break;
    case 420:
        entity.trueColor = static_cast<std::uint32_t>(m_tags.Long() & 0xFFFFFF);
        break;
    case 430:
        // Converters write 0 for the value of a colour out of a colour book: its index is the better one then.
        if (entity.trueColor == 0U)
            entity.trueColor.reset();
        break;
    case 440:
        TakeTransparency(entity, m_tags.Long());
        break;
    default:
        break;
    }
}

void Read(const Drawing& drawing, const EntityRecord& record, Entity& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        tags.TakeCommon(data);
}

void DecodeText(const Drawing::Source& source, std::string_view raw, std::string& target)
{
    source.text->Decode(raw, target);
    DecodeCarets(target);
}

} // namespace sm::drawing
