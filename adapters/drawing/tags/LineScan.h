// SPDX-License-Identifier: GPL-3.0-or-later
// Finds line ends quickly: "\n", "\r\n", "\r" and "\r\r\n", in any mixture.
#pragma once

#include <bit>
#include <cstdint>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace sm::drawing {

/// The first '\r' or '\n' of [at, end), or `end`.
inline const char* FindLineEnd(const char* at, const char* end)
{
#if defined(__SSE2__)
    const __m128i feed = _mm_set1_epi8('\n');
    const __m128i carriage = _mm_set1_epi8('\r');
    while (end - at >= 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const __m128i hits = _mm_or_si128(_mm_cmpeq_epi8(block, feed), _mm_cmpeq_epi8(block, carriage));
        if (const auto mask = static_cast<std::uint32_t>(_mm_movemask_epi8(hits)); mask != 0)
            return at + std::countr_zero(mask);
        at += 16;
    }
#endif
    while (at < end && *at != '\n' && *at != '\r')
        ++at;
    return at;
}

/// Behind the line end that starts at `at` (as FindLineEnd gives it).
inline const char* SkipLineEnd(const char* at, const char* end)
{
    if (at >= end)
        return end;
    if (*at == '\n')
        return at + 1;
    if (at + 1 < end && at[1] == '\n')
        return at + 2;
    if (at + 2 < end && at[1] == '\r' && at[2] == '\n')
        return at + 3;
    return at + 1;
}

} // namespace sm::drawing
