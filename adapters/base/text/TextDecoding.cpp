// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/TextDecoding.h"

#include "base/text/Utf8.h"

#include <cstdint>

namespace sm::base {

namespace {

std::string UnixLineEnds(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r') {
            result += text[at];
        } else if (at + 1 >= text.size() || text[at + 1] != '\n') {
            result += '\n';
        }
    }
    return result;
}

} // namespace

std::string FromUtf16(std::string_view bytes, bool bigEndian)
{
    const auto unit = [&](std::size_t at) -> char32_t {
        const auto first = static_cast<std::uint8_t>(bytes[at]);
        const auto second = static_cast<std::uint8_t>(bytes[at + 1]);
        return bigEndian ? first * 256U + second : second * 256U + first;
    };
    std::string text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t character = unit(at);
        const bool leading = character >= 0xD800 && character < 0xDC00;
        if (leading && at + 3 < bytes.size() && unit(at + 2) >= 0xDC00 && unit(at + 2) < 0xE000) {
            character = 0x10000 + ((character - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
            at += 2;
        }
        AppendUtf8(text, character);
    }
    return text;
}

std::string DecodeText(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        return UnixLineEnds(bytes.substr(3));
    }
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        return UnixLineEnds(FromUtf16(bytes.substr(2), bytes[0] == '\xFE'));
    }
    if (bytes.size() >= 4 && (bytes[0] == 0) != (bytes[1] == 0) && (bytes[0] == 0) == (bytes[2] == 0)) {
        return UnixLineEnds(FromUtf16(bytes, bytes[0] == 0));
    }
    return UnixLineEnds(bytes);
}

} // namespace sm::base
