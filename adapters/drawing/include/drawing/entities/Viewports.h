// SPDX-License-Identifier: GPL-3.0-or-later
// VIEWPORT: a window of a sheet onto the model.
#pragma once

#include "drawing/Tables.h"
#include "drawing/entities/Entity.h"

#include <vector>

namespace sm::drawing {

struct ViewportData : Entity {
    Vec3 center; ///< paper units
    double width = 0, height = 0;
    std::int32_t status = 0, id = 0; ///< 68, 69; see SheetViewportOf
    std::int32_t flags = 0;          ///< 90; 1 perspective, 0x800 hidden lines when plotted, 0x20000 off
    Vec2 viewCenter;                 ///< DCS of the view
    double viewHeight = 0;           ///< model units
    Vec3 direction{0, 0, 1}, target;
    double twist = 0;                        ///< degrees
    ViewDepth depth;                         ///< 90 bits 1 to 16, and 42 to 44
    std::vector<std::uint32_t> frozenLayers; ///< indexes into the layers
    Handle clipEntity = 0;                   ///< 340
    std::int32_t shadePlot = 0;              ///< 170; 0 as flags say, 1 all lines, 2 hidden lines, 3 shaded
    [[nodiscard]] bool HidesLines() const { return shadePlot == 2 || ((flags & 0x800) != 0 && shadePlot != 1); }
    [[nodiscard]] bool Off() const { return (flags & 0x20000) != 0; }
};

void Read(const Drawing&, const EntityRecord&, ViewportData&);

/// The viewport of a paper space's block that is the sheet itself, whose view is what the sheet shows and which draws
/// nothing: the one with id 1 (DXF reference, VIEWPORT group 69). Where no viewport of the block has an id, since group
/// 69 is missing or all are 0 or -1 (as in sheets that were never opened), it is the first one in draw order. Null when
/// there is none.
const EntityRecord* SheetViewportOf(const Drawing&, std::uint32_t block);

} // namespace sm::drawing
