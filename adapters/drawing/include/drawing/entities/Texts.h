// SPDX-License-Identifier: GPL-3.0-or-later
// TEXT, ATTRIB, ATTDEF, texts along arcs and MTEXT.
#pragma once

#include "drawing/entities/Entity.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {

/// TEXT, ATTRIB, ATTDEF, RTEXT. OCS.
struct TextData : Entity {
    Vec3 insertion, alignment;
    bool hasAlignment = false;
    std::string text;        ///< UTF-8, %%-codes still in it
    std::string tag, prompt; ///< ATTRIB, ATTDEF
    std::uint32_t style = 0;
    double height = 0, rotation = 0, widthFactor = 1, oblique = 0;
    bool backward = false, upsideDown = false;
    std::int32_t horizontal = 0;               ///< 72: 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit
    std::int32_t vertical = 0;                 ///< 73 (TEXT) or 74 (ATTRIB): 0 baseline, 1 bottom, 2 middle, 3 top
    std::int32_t attributeFlags = 0;           ///< 70: 1 invisible, 2 constant, 4 verify, 8 preset
    bool isElsewhere = false;                  ///< RTEXT: a file holds it, or an expression yet to be computed
    std::optional<EntityRecord> embeddedMText; ///< a multi-line attribute's own MTEXT tags
};
/// ARCALIGNEDTEXT: one letter after the other along an arc, in the font of its style. The insertion is the arc's
/// centre; rotation and alignments of single lines aren't used. Groups as in the DXF reference of release 2000.
struct ArcTextData : TextData {
    double radius = 0, startAngle = 0, endAngle = 0;    ///< degrees, counter-clockwise
    double spacing = 0;                                 ///< between two letters, besides their width
    double offset = 0, leftOffset = 0, rightOffset = 0; ///< from the arc; from its ends, as who reads it sees them
    std::int32_t placing = 4;                           ///< 72: 1 spread over the arc, 2 left, 3 right, 4 in its middle
    bool isInward = false;                              ///< 71: the letters' tops point to the centre
    bool isInside = false;                              ///< 73: on the arc's concave side
    bool isReversed = false, isUnderlined = false;
};
struct MTextData : Entity {
    Vec3 insertion;
    Vec3 direction{1, 0, 0}; ///< WCS x axis of the text
    bool hasDirection = false;
    std::string text; ///< UTF-8, formatting still in it, all 3 and 1 groups joined
    std::uint32_t style = 0;
    double height = 0, width = 0, rotation = 0; ///< width 0: no wrapping
    std::int32_t attachment = 1;                ///< 1 top left to 9 bottom right
    double lineSpacing = 1;
    std::int32_t lineSpacingStyle = 1; ///< 1 at least, 2 exact
    std::int32_t backgroundFlags = 0;  ///< 1 filled, 2 in the paper's colour, 16 framed
    double backgroundScale = 1.5;
    std::int16_t backgroundColor = 0;
    std::optional<std::uint32_t> backgroundTrueColor;
    std::int32_t columnType = 0, columnCount = 0; ///< type: 0 none, 1 static, 2 dynamic
    double columnWidth = 0, columnGutter = 0;
    bool columnsReversed = false, columnAutoHeight = false;
    double definedHeight = 0;          ///< of each column; 0: none
    std::vector<double> columnHeights; ///< of the columns one by one; 0: no limit
};

void Read(const Drawing&, const EntityRecord&, TextData&);
void Read(const Drawing&, const EntityRecord&, ArcTextData&);
void Read(const Drawing&, const EntityRecord&, MTextData&);

} // namespace sm::drawing
