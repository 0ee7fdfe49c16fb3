// UTF-8 walking and the few facts on characters that layout asks for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sm::render {

/// The character at `at`, which moves on; what isn't UTF-8 gives U+FFFD for each byte.
inline char32_t NextCharacter(std::string_view text, std::size_t& at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at++);
    if (lead < 0x80) {
        return lead;
    }
    const std::size_t more = lead < 0xC2 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : 0;
    if (more == 0 || at + more > text.size()) {
        return 0xFFFD;
    }
    char32_t c = lead & (0x3FU >> more);
    for (std::size_t i = 0; i < more; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) {
            return 0xFFFD;
        }
        c = c << 6 | (byte(at + i) & 0x3FU);
    }
    at += more;
    return c;
}

inline void AppendCharacter(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            out += static_cast<char>(0xE0 | c >> 12);
        } else {
            out += static_cast<char>(0xF0 | (c >> 18 & 7));
            out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        }
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    }
    out += static_cast<char>(0x80 | (c & 0x3F));
}

/// Written from right to left.
inline bool IsRightToLeft(char32_t c)
{
    return (c >= 0x590 && c < 0x900) || (c >= 0xFB1D && c < 0xFDFF) || (c >= 0xFE70 && c < 0xFEFF);
}

/// Needs shaping: joined, reordered or stacked scripts and combining marks.
inline bool IsComplex(char32_t c)
{
    return c >= 0x300 && ((c < 0x370) || IsRightToLeft(c) || (c >= 0x900 && c < 0x1100) ||
                          (c >= 0x1780 && c < 0x1800) || (c >= 0x1AB0 && c < 0x1B00) || (c >= 0x1DC0 && c < 0x1E00) ||
                          (c >= 0x20D0 && c < 0x2100) || (c >= 0xFE00 && c < 0xFE30));
}

/// Chinese, Japanese: a line may break before and behind.
inline bool BreaksAnywhere(char32_t c)
{
    return (c >= 0x2E80 && c < 0xA4D0) || (c >= 0xF900 && c < 0xFB00) || (c >= 0xFF00 && c < 0xFFF0) ||
           (c >= 0x20000 && c < 0x40000);
}

/// Chinese, Japanese, Korean.
inline bool IsEastAsian(char32_t c)
{
    return BreaksAnywhere(c) || (c >= 0x1100 && c < 0x1200) || (c >= 0xAC00 && c < 0xD7B0);
}

inline char LowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string Lowered(std::string_view text)
{
    std::string out(text);
    for (char& c : out) {
        c = LowerAscii(c);
    }
    return out;
}

} // namespace sm::render
