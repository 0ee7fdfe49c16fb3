// SPDX-License-Identifier: GPL-3.0-or-later
// Measurements as dimensions write them, in the formatting of MTEXT.
#pragma once

#include "notes/DimensionUnits.h"

#include <string>

namespace sm::render {

/// A length in drawing units, or an angle in degrees.
struct Measure {
    double value = 0;
    bool isAngle = false;
};

/// What a dimension says: the measurement with its tolerance (DIMTOL) or as limits (DIMLIM), DIMPOST or else `prefix`,
/// and the length in a second unit in brackets (DIMALT); `own` with "<>" and "[]" filled in, when there is one. Empty:
/// the dimension shows no text.
std::string DimensionText(const std::string& own, const Measure& measure, const std::string& prefix,
                          const drawing::DimStyle& style);

} // namespace sm::render
