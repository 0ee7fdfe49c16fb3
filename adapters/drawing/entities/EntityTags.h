// SPDX-License-Identifier: GPL-3.0-or-later
// An entity's own tags, with the properties that all entities share.
#pragma once

#include "drawing/entities/Entity.h"
#include "tags/Source.h"

namespace sm::drawing {

/// Walks an entity's tags up to its extended data, an embedded object or the next record of a sequence; groups in
/// braces (code 102: reactors, extension dictionary) are left out.
class EntityTags {
public:
    EntityTags(const Drawing::Source& source, const EntityRecord& record);

    /// The record with its tags' place.
    [[nodiscard]] const EntityRecord& Record() const { return m_record; }

    bool Next()
    {
        while (m_tags.Next()) {
            const int code = m_tags.Code();
            if (code == 0 || code == 101 || code >= 1000)
                return false;
            if (code != 102)
                return true;
            if (!PassGroup())
                return false;
        }
        return false;
    }
    [[nodiscard]] int Code() const { return m_tags.Code(); }
    [[nodiscard]] double Real() const { return m_tags.Real(); }
    [[nodiscard]] std::int32_t Integer() const { return m_tags.Integer(); }
    [[nodiscard]] std::string_view Name() const { return m_tags.Name(); }
    [[nodiscard]] std::string_view RawText() const { return m_tags.Text(); }
    [[nodiscard]] Handle HandleValue() const { return m_tags.HandleValue(); }
    [[nodiscard]] const Drawing::Source& Source() const { return m_source; }
    /// Where the walk stopped: at code 0, 101 or 1001, or at the end.
    [[nodiscard]] const TagCursor& Cursor() const { return m_tags; }

    /// Takes the current tag as a coordinate of the point whose x has code `base` (y +10, z +20); false: it is none.
    bool Take(int base, Vec3& point) const
    {
        const int part = Code() - base;
        if (part == 0)
            point.x = Real();
        else if (part == 10)
            point.y = Real();
        else if (part == 20)
            point.z = Real();
        else
            return false;
        return true;
    }
    bool Take(int base, Vec2& point) const
    {
        const int part = Code() - base;
        if (part == 0)
            point.x = Real();
        else if (part == 10)
            point.y = Real();
        return part == 0 || part == 10;
    }
    /// Takes the current tag as a property that every entity has.
    void TakeCommon(Entity& entity) const;

private:
    /// Past the end of the group in braces that begins here; false where the entity ends before.
    bool PassGroup();
    void TakePlotStyle(Entity& entity) const;
    const Drawing::Source& m_source;
    EntityRecord m_record;
    TagCursor m_tags;
};

/// The entity's handle, 0 without one.
Handle HandleOf(const Drawing::Source& source, const EntityRecord& record);

/// The text of a tag as UTF-8 with its control characters.
void DecodeText(const Drawing::Source& source, std::string_view raw, std::string& target);

} // namespace sm::drawing
