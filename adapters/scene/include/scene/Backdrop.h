// SPDX-License-Identifier: GPL-3.0-or-later
// What drawings are shown on: paper, or a dark screen.
#pragma once

#include <cstdint>

namespace sm::scene {

enum class Backdrop { Light, Dark };

/// 0xRRGGBB of what is no item of the drawing.
struct BackdropColors {
    std::uint32_t desk;      ///< round a sheet
    std::uint32_t sheet;     ///< under the drawing
    std::uint32_t shadow;    ///< of the sheet
    std::uint32_t edge;      ///< of the sheet
    std::uint32_t printable; ///< edge of what can be printed
    std::uint32_t cross;     ///< of the cursor
};
const BackdropColors& ColorsOf(Backdrop backdrop);

/// What an ink for white paper (0xTTRRGGBB as in Canvas.h) becomes: on a dark sheet dark and light change places, hues
/// stay, and what is white is the sheet itself.
std::uint32_t InkOn(Backdrop backdrop, std::uint32_t color);

} // namespace sm::scene
