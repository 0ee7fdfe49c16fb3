// SPDX-License-Identifier: GPL-3.0-or-later
// MULTILEADER, with what its style says already in place.
#pragma once

#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/NoteAttribute.h"
#include "drawing/entities/Texts.h"

namespace sm::drawing {

/// MULTILEADER. Places and directions in the WCS; lengths as drawn, all scales included.
struct MultiLeaderData : Entity {
    struct Gap {
        Vec3 start, end;
    };
    struct Line {
        std::vector<Vec3> vertices; ///< tip first
        std::vector<Gap> gaps;      ///< where other lines cross
        Entity pen;                 ///< colour, line type, lineweight
        double arrowSize = 0;
        ArrowHead arrow;
    };
    struct Leader {
        std::vector<Line> lines;
        Vec3 end; ///< where the lines meet
        bool hasEnd = false;
        std::vector<Gap> gaps; ///< of the dogleg
        Vec3 dogleg;           ///< direction from `end` to the content
        double doglegLength = 0;
        bool vertical = false; ///< comes from above or below the content
    };
    enum class Content : std::uint8_t { None, Block, Text };

    std::vector<Leader> leaders;
    Entity pen; ///< of doglegs, text frames and underlines
    bool hidden = false, spline = false;
    bool dogleg = true;
    double landingGap = 0;
    Content content = Content::None;
    MTextData text; ///< its colour in `text.color`, `text.trueColor`
    bool textFrame = false;
    std::int32_t leftAttachment = 1, rightAttachment = 1; ///< DXF reference, MLEADERSTYLE 174 and 178
    InsertData block;                                     ///< of Content::Block; no attributes of its own
    std::vector<NoteAttribute> attributes;
};
void Read(const Drawing&, const EntityRecord&, MultiLeaderData&);

} // namespace sm::drawing
