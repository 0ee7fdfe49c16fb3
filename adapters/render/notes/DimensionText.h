// Measurements as dimensions write them, in the formatting of MTEXT.
#pragma once

#include "drawing/entities/DimStyles.h"

#include <string>

namespace sm::render {

/// A length in the units of the style (DIMLUNIT, DIMDEC, DIMZIN, DIMRND, DIMLFAC), without prefix or tolerance.
std::string LengthText(double length, const drawing::DimStyle& style);

/// An angle in degrees in the units of the style (DIMAUNIT, DIMADEC, DIMAZIN).
std::string AngleText(double degrees, const drawing::DimStyle& style);

/// What a dimension says: `measured` with tolerances, DIMPOST or else `prefix`; `own` with "<>" filled in, when there
/// is one. Empty: the dimension shows no text.
std::string DimensionText(const std::string& own, const std::string& measured, const std::string& prefix,
                          const drawing::DimStyle& style);

} // namespace sm::render
