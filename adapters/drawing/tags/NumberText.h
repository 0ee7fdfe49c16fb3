// Numbers as DXF files spell them, whatever the locale. Blanks around and a leading '+' are tolerated.
#pragma once

#include "drawing/Tables.h"

#include <cstdint>
#include <string_view>

namespace sm::drawing {

/// Without blanks, tabs and control characters at both ends.
std::string_view Trimmed(std::string_view text);

/// 0 when `text` starts with no number, and for numbers that aren't finite.
double ParseReal(std::string_view text);

/// 0 when `text` starts with no integer; beyond the range of 64 bits the nearest limit.
std::int64_t ParseInteger(std::string_view text);

/// A handle in hexadecimal digits; 0 when there is none or it is longer than 16 digits.
Handle ParseHandle(std::string_view text);

} // namespace sm::drawing
