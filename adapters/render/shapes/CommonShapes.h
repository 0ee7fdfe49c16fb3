// SPDX-License-Identifier: GPL-3.0-or-later
// Symbols that line types commonly use, where no shape file is at hand.
#pragma once

#include "render/Canvas.h"

#include <cstdint>
#include <string_view>

namespace sm::render {

/// Our own strokes of a symbol of the common shape file for line types; false for other numbers.
bool AppendCommonShape(std::uint16_t number, Path& path);
/// Its number: "BOX" 132 and so on; 0 for other names. Capitals.
std::uint16_t CommonShapeNumber(std::string_view name);

} // namespace sm::render
