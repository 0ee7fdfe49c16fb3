// SPDX-License-Identifier: GPL-3.0-or-later
// Text of files that other programs wrote, in whatever form they wrote it.
#pragma once

#include <string>
#include <string_view>

namespace sm::base {

/// UTF-8 from 16-bit units, two bytes each; a surrogate without its other half becomes U+FFFD, and a byte left over at
/// the end is dropped.
std::string FromUtf16(std::string_view bytes, bool bigEndian);

/// UTF-8 text with "\n" line ends from bytes with or without a byte order mark: UTF-16 (by its mark, or by the zero
/// bytes of its first characters), UTF-8, or any 8-bit text, whose bytes are kept. "\r\n" and "\r" become "\n".
std::string DecodeText(std::string_view bytes);

} // namespace sm::base
