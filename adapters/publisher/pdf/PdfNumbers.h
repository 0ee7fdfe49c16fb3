// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as PDF and PostScript write them.
#pragma once

#include "base/text/NumberText.h"

#include <string>

namespace sm::publisher {

/// Fixed notation with at most five decimals and no trailing zeros, "." as separator, "0" for -0. What isn't finite
/// gives "0".
inline std::string NumberText(double value)
{
    return base::DecimalText(value, 5);
}

} // namespace sm::publisher
