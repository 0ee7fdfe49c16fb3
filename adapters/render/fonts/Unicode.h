// SPDX-License-Identifier: GPL-3.0-or-later
// The few facts on characters that layout asks for.
#pragma once

namespace sm::render {

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

/// Stands above, below or within the character before it.
inline bool IsMark(char32_t c)
{
    return (c >= 0x300 && c < 0x370) || (c >= 0x591 && c < 0x5C8 && c != 0x5BE && c != 0x5C0 && c != 0x5C3) ||
           (c >= 0x1AB0 && c < 0x1B00) || (c >= 0x1DC0 && c < 0x1E00) || (c >= 0x20D0 && c < 0x2100) ||
           (c >= 0xFE00 && c < 0xFE30 && !(c >= 0xFE10 && c < 0xFE20));
}

/// Of a script from right to left whose letters stand apart.
inline bool IsHebrewLetter(char32_t c)
{
    return (c >= 0x5BE && c < 0x600 && !IsMark(c)) || (c >= 0xFB1D && c < 0xFB50);
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

} // namespace sm::render
