// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of a laid-out text, kept from call to call so that their memory is used again.
#pragma once

#include "render/TextLayout.h"

namespace sm::render {

/// Fills `corners` with the images of a box's corners, counter-clockwise from the lower left one.
void SetCorners(const Box2& box, const Matrix2& map, std::vector<Vec2>& corners);

class LaidParts {
public:
    /// Empties the result.
    void Begin();
    GlyphPart& AddGlyphs();
    RulePart& AddRule();
    [[nodiscard]] LaidText& Result() { return m_result; }
    /// Maps everything from the plane it was set in, and gives the outline as the map's image of `box`.
    void Place(const Matrix2& map, const Box2& box);

private:
    LaidText m_result;
    std::vector<GlyphPart> m_spareGlyphs;
    std::vector<RulePart> m_spareRules;
};

} // namespace sm::render
