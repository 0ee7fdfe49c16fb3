// SPDX-License-Identifier: GPL-3.0-or-later
// Advance widths of the fonts that every PDF reader has.
#pragma once

#include <array>
#include <cstdint>

namespace sm::publisher {

/// Faces with widths of their own: an oblique face has those of its upright one, all Couriers share one width.
enum class StandardFace {
    Courier,
    Helvetica,
    HelveticaBold,
    TimesRoman,
    TimesBold,
    TimesItalic,
    TimesBoldItalic,
    Symbol,
    ZapfDingbats,
};

/// In thousandths of the font size, from the font metrics files (AFM); `code` is WinAnsiEncoding's, or the face's own
/// for Symbol and ZapfDingbats. 0 where the face has no character.
std::uint16_t StandardFontWidth(StandardFace face, unsigned char code);

} // namespace sm::publisher
