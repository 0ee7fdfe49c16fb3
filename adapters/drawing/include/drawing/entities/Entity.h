// SPDX-License-Identifier: GPL-3.0-or-later
// What all entities have in common. Each family's typed content has a header of its own beside this one.
//
// The drawing keeps 24 bytes an entity; a `Read` walks its tags and fills a struct that the caller reuses, so that the
// hot road allocates nothing. Values are as in the file: coordinates in the entity's own system (OCS where the DXF
// reference says so), angles in degrees. Nothing is trusted: counts are bounded by the entity's tags, non-finite
// numbers become 0.
#pragma once

#include "base/Geometry.h"
#include "drawing/EntityRecord.h"
#include "drawing/Properties.h"

#include <optional>

namespace sm::drawing {

/// Properties that every entity has.
struct Entity {
    Handle handle = 0, owner = 0;
    std::uint32_t layer = 0;    ///< index into the layers; layer "0" when the named one is missing
    std::uint32_t linetype = 0; ///< index into the linetypes; ByLayer when not given
    double linetypeScale = 1;
    std::int16_t color = kByLayer;
    std::optional<std::uint32_t> trueColor; ///< 0xRRGGBB
    std::int16_t lineweight = kLineweightByLayer;
    bool invisible = false;
    Vec3 extrusion{0, 0, 1};
    double thickness = 0;
    double elevation = 0;                     ///< group 38
    std::optional<std::uint8_t> transparency; ///< 0 clear to 255 opaque, when given by value
    bool transparencyByBlock = false;
    /// Where the named plot style comes from (DXF reference, common group 380).
    enum class StyleSource : std::uint8_t { Layer, Block, Default, Own } plotStyleSource = StyleSource::Layer;
    Handle plotStyle = 0; ///< when it is its own
};

void Read(const Drawing&, const EntityRecord&, Entity&);

} // namespace sm::drawing
