// SPDX-License-Identifier: GPL-3.0-or-later
// IMAGE, WIPEOUT and underlays: what is shown of another file, or covered.
#pragma once

#include "drawing/entities/Entity.h"

#include <vector>

namespace sm::drawing {

/// IMAGE, WIPEOUT (WCS); PDF/DWF/DGN UNDERLAY (OCS).
struct ImageData : Entity {
    Vec3 insertion, u, v; ///< lower-left corner; vectors of one pixel, of one inch of an underlay's page
    Vec2 size;            ///< pixels; 0 for underlays
    Handle definition = 0;
    std::int32_t flags = 0, clipType = 0; ///< IMAGE 70: 1 shown, 8 transparent; UNDERLAY 280: 2 shown, 4 monochrome
    std::vector<Vec2> clip;    ///< images: pixels from the middle of the first one, y down; underlays: inches, y up
    bool clipping = false;     ///< IMAGE, WIPEOUT: group 280 and flag 4; UNDERLAY: flag 1
    bool clipInverted = false; ///< group 290: what the boundary holds is left out
    std::int32_t brightness = 50, contrast = 50, fade = 0; ///< 0 to 100; an underlay's contrast is 100 as it is
};

void Read(const Drawing&, const EntityRecord&, ImageData&);

} // namespace sm::drawing
