// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/Makers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace sm::base {

namespace {

constexpr std::size_t kDigits = 16;

} // namespace

std::string Hexadecimal(std::uint64_t number)
{
    std::array<char, kDigits> digits;
    digits.fill('0');
    std::array<char, kDigits> significant{};
    const auto end = std::to_chars(significant.data(), significant.data() + significant.size(), number, 16).ptr;
    std::copy(significant.data(), end, digits.end() - (end - significant.data()));
    return {digits.data(), digits.size()};
}

/// (FNV-1a, 64 bits: offset 14695981039346656037, prime 1099511628211.)
std::string MachineMark(std::string name, const std::string& marks)
{
    std::uint64_t number = 14695981039346656037U;
    for (const char c : marks)
        number = (number ^ static_cast<unsigned char>(c)) * 1099511628211U;
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-')
            c = '_';
    return name + "." + Hexadecimal(number);
}

} // namespace sm::base
