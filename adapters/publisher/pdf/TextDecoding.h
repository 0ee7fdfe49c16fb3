// Text of files that other programs wrote, in whatever form they wrote it.
#pragma once

#include <string>
#include <string_view>

namespace sm::publisher {

/// UTF-8 text with "\n" line ends from bytes with or without a byte order mark: UTF-16 (by its mark, or by the zero
/// bytes of its first characters), UTF-8, or any 8-bit text, whose bytes are kept. "\r\n" and "\r" become "\n".
std::string DecodeText(std::string_view bytes);

/// `text` with everything that isn't well-formed UTF-8 replaced by U+FFFD.
std::string ValidUtf8(std::string_view text);

/// Appends one character as UTF-8; surrogates and values over U+10FFFF become U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

} // namespace sm::publisher
