// SPDX-License-Identifier: GPL-3.0-or-later
// The colours behind the AutoCAD colour index.
#pragma once

#include <cstdint>

namespace sm::render {

/// 0xRRGGBB of colour index 1 to 255 as it shows on white paper: index 7, and what isn't an index, is black.
std::uint32_t PaperColor(std::int16_t index);

} // namespace sm::render
