// SPDX-License-Identifier: GPL-3.0-or-later
// Keywords of file formats, which are ASCII: other letters stay as they are.
#pragma once

#include <string>
#include <string_view>

namespace sm::base {

constexpr char LowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string LowerAscii(std::string_view text);
std::string UpperAscii(std::string_view text);
/// The same keyword but for the case of ASCII letters?
bool SameAscii(std::string_view left, std::string_view right);

} // namespace sm::base
