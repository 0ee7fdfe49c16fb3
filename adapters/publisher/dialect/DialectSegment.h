// SPDX-License-Identifier: GPL-3.0-or-later
// The lines that most of a page's body consists of, two numbers and an operator, in one look.
#pragma once

#include <bit>
#include <cstdint>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace sm::publisher {

/// Behind "123 456 l" or "123 456 m" with its line end when that stands at `at`; `at` where something else does, or
/// what is too long for 16 bytes, or on processors without them.
inline const char* PastSegment(const char* at, const char* end)
{
#if defined(__SSE2__)
    constexpr std::ptrdiff_t kSeen = 16, kRoom = kSeen + 2;
    if (end - at < kRoom) {
        return at;
    }
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i digit = _mm_sub_epi8(bytes, _mm_set1_epi8('0'));
    const __m128i isDigit = _mm_cmpeq_epi8(_mm_min_epu8(digit, _mm_set1_epi8(9)), digit);
    const __m128i isMinus = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('-'));
    const auto numbers = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_or_si128(isDigit, isMinus)));
    const int first = std::countr_one(numbers);
    const int second = std::countr_one(numbers >> (first + 1));
    const char* const op = at + first + 1 + second + 1;
    const bool apart = first > 0 && second > 0 && op - at <= kSeen && at[first] == ' ' && op[-1] == ' ';
    return apart && (*op == 'l' || *op == 'm') && op[1] == '\n' ? op + 2 : at;
#else
    static_cast<void>(end);
    return at;
#endif
}

} // namespace sm::publisher
