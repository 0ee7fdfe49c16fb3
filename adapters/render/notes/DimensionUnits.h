// SPDX-License-Identifier: GPL-3.0-or-later
// Lengths and angles in the units of dimension styles, in the formatting of MTEXT.
#pragma once

#include "drawing/entities/DimStyles.h"

#include <string>

namespace sm::render {

/// A number with so many decimals, whatever the locale.
std::string FixedText(double value, std::int32_t decimals);

/// A length in the units of the style (DIMLUNIT, DIMDEC, DIMZIN, DIMRND, DIMLFAC), without prefix or tolerance.
std::string LengthText(double length, const drawing::DimStyle& style);

/// An angle in degrees in the units of the style (DIMAUNIT, DIMADEC, DIMAZIN).
std::string AngleText(double degrees, const drawing::DimStyle& style);

/// A length as the style scales and rounds it, without its sign.
double ShownLength(double length, const drawing::DimStyle& style);

} // namespace sm::render
