// SPDX-License-Identifier: GPL-3.0-or-later
// The pattern of a line type. For this room only.
#pragma once

#include "dwg/objects/Object.h"

namespace sm::drawing::dwg {

/// What follows the head of an LTYPE.
void WriteLinetype(Object& object);

} // namespace sm::drawing::dwg
