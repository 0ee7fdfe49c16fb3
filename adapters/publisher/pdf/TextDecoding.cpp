#include "pdf/TextDecoding.h"

#include <cstdint>

namespace sm::publisher {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

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

/// Length of the well-formed sequence at `at`, or 0.
std::size_t SequenceLength(std::string_view text, std::size_t at)
{
    const auto byte = [&](std::size_t index) -> unsigned {
        return index < text.size() ? static_cast<std::uint8_t>(text[index]) : 0U;
    };
    const unsigned lead = byte(at);
    if (lead < 0x80) {
        return 1;
    }
    const std::size_t length = lead >= 0xC2 && lead < 0xE0   ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80) {
            return 0;
        }
    }
    const unsigned second = byte(at + 1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool outside = (lead == 0xED && second >= 0xA0) || (lead == 0xF4 && second >= 0x90);
    return overlong || outside ? 0 : length;
}

} // namespace

void AppendUtf8(std::string& text, char32_t character)
{
    if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) {
        character = kReplacement;
    }
    const auto push = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        push(character);
    } else if (character < 0x800) {
        push(0xC0 | (character >> 6));
        push(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        push(0xE0 | (character >> 12));
        push(0x80 | ((character >> 6) & 0x3F));
        push(0x80 | (character & 0x3F));
    } else {
        push(0xF0 | (character >> 18));
        push(0x80 | ((character >> 12) & 0x3F));
        push(0x80 | ((character >> 6) & 0x3F));
        push(0x80 | (character & 0x3F));
    }
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

std::string ValidUtf8(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = SequenceLength(text, at);
        if (length == 0) {
            AppendUtf8(result, kReplacement);
            ++at;
        } else {
            result.append(text.substr(at, length));
            at += length;
        }
    }
    return result;
}

} // namespace sm::publisher
