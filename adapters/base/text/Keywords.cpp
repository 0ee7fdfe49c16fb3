// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Keywords.h"

#include <algorithm>

namespace sm::base {

std::string LowerAscii(std::string_view text)
{
    std::string lowered(text);
    for (char& c : lowered)
        c = LowerAscii(c);
    return lowered;
}

std::string UpperAscii(std::string_view text)
{
    std::string capitals(text);
    for (char& c : capitals)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return capitals;
}

bool SameAscii(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

} // namespace sm::base
