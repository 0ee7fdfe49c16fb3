// SPDX-License-Identifier: GPL-3.0-or-later
// Values that cross the automation ports.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace sm {

/// Booleans at interfaces are 16-bit: True has all bits set, False is 0; any other value is passed on unchanged.
using VariantBool = std::int16_t;
inline constexpr VariantBool kTrue = -1;
inline constexpr VariantBool kFalse = 0;

/// A point of the drawing, in drawing units.
struct AcadPoint {
    double x = 0, y = 0, z = 0;
    friend bool operator==(const AcadPoint&, const AcadPoint&) = default;
};

/// A value as automation hands it over: nothing, integer, double, text (UTF-8), Boolean or point.
using AcadVariant = std::variant<std::monostate, std::int32_t, double, std::string, bool, AcadPoint>;

/// An extended-data record: two parallel arrays of equal length. Position 0 is 1001 and the application name.
struct AcadXData {
    std::vector<std::int16_t> codes;
    std::vector<AcadVariant> values;
    friend bool operator==(const AcadXData&, const AcadXData&) = default;
};

} // namespace sm
