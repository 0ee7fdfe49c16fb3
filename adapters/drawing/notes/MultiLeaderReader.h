// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the nested lists of a MULTILEADER. For this room only.
#pragma once

#include "drawing/entities/MultiLeaders.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

class MultiLeaderReader {
public:
    MultiLeaderReader(const Drawing& drawing, MultiLeaderData& data) : m_drawing(drawing), m_data(data) {}
    void Run(const EntityRecord& record);

private:
    enum class Part : std::uint8_t { Entity, Context, Leader, Line };

    bool ChangePart(const EntityTags& tags);
    void TakeEntityTag(const EntityTags& tags);
    void TakeContentTag(const EntityTags& tags);
    void TakeContextTag(const EntityTags& tags);
    void TakeTextTag(const EntityTags& tags);
    void TakeBlockTag(const EntityTags& tags);
    void TakeLeaderTag(const EntityTags& tags);
    void TakeLineTag(const EntityTags& tags);
    void ReadStyle();
    void TakeStyleTag(const TagCursor& tag);
    void FinishLines(Handle sharedArrow);
    void Finish();

    /// What leader lines and arrows look like: of the style, or of the entity where it goes its own way.
    struct Look {
        std::int32_t leaderForm = 1;
        Entity pen;
        bool landing = true, dogleg = true, frame = false;
        Handle arrow = 0;
    };
    struct LineChanges {
        std::int32_t flags = 0;
        Handle arrow = 0;
        double arrowSize = 0;
    };

    const Drawing& m_drawing;
    MultiLeaderData& m_data;
    Part m_part = Part::Entity;
    Look m_own, m_style;
    Handle m_styleHandle = 0;
    std::int32_t m_flags = 0; ///< which of its own values count
    bool m_inClass = false;   ///< behind the marker of the class: 330 is no owner any more
    bool m_paperBackground = false;
    bool m_hasText = false, m_hasBlock = false;
    double m_arrowSize = 0;
    std::vector<LineChanges> m_lines; ///< in the order of the lines
};

} // namespace sm::drawing
