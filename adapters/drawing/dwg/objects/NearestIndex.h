// SPDX-License-Identifier: GPL-3.0-or-later
// The colour index that stands beside a true colour. For this room only.
#pragma once

#include <cstdint>

namespace sm::drawing::dwg {

/// The index from 1 to 255 whose colour on screen is nearest to `rgb` (0xRRGGBB): what CAD programs write beside a true
/// colour, and what a DWG leaves out in tables and styles.
std::int32_t NearestIndex(std::uint32_t rgb);

} // namespace sm::drawing::dwg
