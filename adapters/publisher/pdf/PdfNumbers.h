// Numbers as PDF and PostScript write them.
#pragma once

#include <string>

namespace sm::publisher {

/// Fixed notation with at most five decimals and no trailing zeros, "." as separator, "0" for -0. What isn't finite
/// gives "0".
std::string NumberText(double value);

} // namespace sm::publisher
