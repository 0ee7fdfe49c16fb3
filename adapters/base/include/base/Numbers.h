// SPDX-License-Identifier: GPL-3.0-or-later
// What several rooms ask of a number from a file.
#pragma once

#include <cmath>

namespace sm::base {

/// Can be taken as a size: above zero, and neither infinite nor no number.
inline bool IsSize(double value)
{
    return std::isfinite(value) && value > 0;
}

} // namespace sm::base
