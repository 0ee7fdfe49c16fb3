// SPDX-License-Identifier: GPL-3.0-or-later
// Characters to UTF-8 and back.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace sm::base {

/// What stands for bytes that are no text, and for values that are no character.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Appends a character; surrogates and values beyond Unicode become U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

/// The character at `at` (which is in front of the end), moving behind it; nothing, and one byte further, when the
/// bytes aren't UTF-8.
std::optional<char32_t> ReadUtf8(std::string_view text, std::size_t& at);

/// The same with U+FFFD for each byte that isn't UTF-8.
inline char32_t NextCharacter(std::string_view text, std::size_t& at)
{
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80) {
        ++at;
        return first;
    }
    return ReadUtf8(text, at).value_or(kReplacement);
}

/// Is the whole text UTF-8?
bool IsUtf8(std::string_view text);

/// `text` with U+FFFD for each byte that isn't UTF-8.
std::string ValidUtf8(std::string_view text);

} // namespace sm::base
