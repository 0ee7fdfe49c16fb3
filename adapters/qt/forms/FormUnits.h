// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog units in pixels.
#pragma once

#include "ports/FormControls.h"

#include <QRect>

#include <cmath>

namespace sm::qt {

/// Pixels of one unit across and down.
struct FormUnits {
    double x = 0, y = 0;

    /// Rounded down: what fits into its parent in units does so in pixels.
    [[nodiscard]] int Across(std::int32_t units) const { return static_cast<int>(std::floor(units * x)); }
    [[nodiscard]] int Down(std::int32_t units) const { return static_cast<int>(std::floor(units * y)); }
    [[nodiscard]] QRect Rect(const ControlPlace& place) const
    {
        return {Across(place.left), Down(place.top), Across(place.width), Down(place.height)};
    }
    friend bool operator==(const FormUnits&, const FormUnits&) = default;
};

} // namespace sm::qt
