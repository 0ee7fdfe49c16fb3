// SPDX-License-Identifier: GPL-3.0-or-later
// Points as people read and type them.
#pragma once

#include "base/Geometry.h"

#include <optional>
#include <string>
#include <string_view>

namespace sm::scene {

/// "12.50, -3.00"; decimals 0 to 8. Never "-0".
std::string PointText(Vec2 point, int decimals);

/// "x,y", blanks aside; "@x,y" counts from `first` when there is one. Nothing for anything else.
std::optional<Vec2> ParsePoint(std::string_view text, std::optional<Vec2> first);

} // namespace sm::scene
