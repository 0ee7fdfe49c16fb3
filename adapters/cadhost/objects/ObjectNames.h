// SPDX-License-Identifier: GPL-3.0-or-later
// The class names of the object model.
#pragma once

#include "drawing/Drawing.h"

#include <string>

namespace sm::cadhost {

/// "AcDbLine" for a LINE; "AcDbZombieEntity" for what no class is known for.
std::string ObjectNameOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record);

} // namespace sm::cadhost
