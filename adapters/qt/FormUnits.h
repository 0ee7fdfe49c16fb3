// Dialog units in pixels.
#pragma once

#include "ports/FormControls.h"

#include <QRect>

#include <cmath>

namespace sm::qt {

/// Pixels of one unit across and down.
struct FormUnits {
    double x = 0, y = 0;

    [[nodiscard]] int Across(std::int32_t units) const { return static_cast<int>(std::lround(units * x)); }
    [[nodiscard]] int Down(std::int32_t units) const { return static_cast<int>(std::lround(units * y)); }
    /// What touches in units touches in pixels.
    [[nodiscard]] QRect Rect(const ControlPlace& place) const
    {
        const QPoint from(Across(place.left), Down(place.top));
        const QPoint to(Across(place.left + place.width), Down(place.top + place.height));
        return {from, QSize(to.x() - from.x(), to.y() - from.y())};
    }
    friend bool operator==(const FormUnits&, const FormUnits&) = default;
};

} // namespace sm::qt
