// SPDX-License-Identifier: GPL-3.0-or-later
#include "AnsiCodePage.h"

#include <algorithm>
#include <iterator>

namespace sm::system {
namespace {

/// Codes 0x80 to 0x9F. The five that the page leaves open stand for the control characters of the same number.
constexpr char32_t kUpperControls[] = {
    0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178,
};
constexpr std::int32_t kQuestionMark = 63;

} // namespace

std::int32_t Ansi1252Code(char32_t character)
{
    if (character < 0x80 || (character >= 0xa0 && character <= 0xff))
        return static_cast<std::int32_t>(character);
    const auto found = std::find(std::begin(kUpperControls), std::end(kUpperControls), character);
    if (found == std::end(kUpperControls))
        return kQuestionMark;
    return 0x80 + static_cast<std::int32_t>(found - std::begin(kUpperControls));
}

} // namespace sm::system
