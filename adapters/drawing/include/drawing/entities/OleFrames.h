// SPDX-License-Identifier: GPL-3.0-or-later
// OLE2FRAME: an object of another program, with the picture that it was last shown by.
#pragma once

#include "drawing/entities/Entity.h"

#include <array>
#include <string>

namespace sm::drawing {

struct OleFrameData : Entity {
    std::array<Vec3, 4> corners; ///< WCS: upper left, upper right, lower right, lower left
    std::string object;          ///< its compound file; empty when the file holds none
};
void Read(const Drawing&, const EntityRecord&, OleFrameData&);

} // namespace sm::drawing
