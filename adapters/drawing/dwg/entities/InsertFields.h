// SPDX-License-Identifier: GPL-3.0-or-later
// What block references and tables have in common. For this room only.
#pragma once

#include "dwg/objects/Object.h"

namespace sm::drawing::dwg {

struct InsertFields {
    Vec3 insertion, scale, extrusion;
    double rotation = 0, columnSpacing = 0, rowSpacing = 0;
    std::int32_t columns = 1, rows = 1;
    Handle block = 0;
};

/// The fields behind the common head; the links to attributes go into Object::members.
InsertFields ReadInsert(Object& object, bool array);

} // namespace sm::drawing::dwg
