// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog units in pixels.
#pragma once

#include "ports/FormControls.h"

#include <cmath>

#include <windef.h>

namespace sm::windows {

/// Pixels of one unit across and down.
struct FormUnits {
    double x = 0, y = 0;

    /// Rounded down: what fits into its parent in units does so in pixels.
    [[nodiscard]] int Across(std::int32_t units) const { return static_cast<int>(std::floor(units * x)); }
    [[nodiscard]] int Down(std::int32_t units) const { return static_cast<int>(std::floor(units * y)); }
    [[nodiscard]] RECT Rect(const ControlPlace& place) const
    {
        const int left = Across(place.left), top = Down(place.top);
        return {left, top, left + Across(place.width), top + Down(place.height)};
    }
    friend bool operator==(const FormUnits&, const FormUnits&) = default;
};

} // namespace sm::windows
