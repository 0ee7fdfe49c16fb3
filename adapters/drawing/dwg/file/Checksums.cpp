// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/file/Checksums.h"

#include <array>
#include <cstring>
#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace sm::drawing::dwg {

namespace {

template <class T> constexpr std::array<T, 256> TableOf(T polynomial)
{
    std::array<T, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        T rest = static_cast<T>(byte);
        for (int bit = 0; bit < 8; ++bit)
            rest = static_cast<T>((rest & 1U) != 0 ? (rest >> 1U) ^ polynomial : rest >> 1U);
        table[byte] = rest;
    }
    return table;
}

/// Row i: what a byte becomes when i zeros follow it.
using Tables16 = std::array<std::array<std::uint16_t, 256>, 8>;
constexpr Tables16 kTables16 = [] {
    Tables16 tables{TableOf<std::uint16_t>(0xA001)};
    for (std::size_t i = 1; i < tables.size(); ++i)
        for (std::size_t byte = 0; byte < tables[i].size(); ++byte) {
            const std::uint16_t before = tables[i - 1][byte];
            tables[i][byte] = static_cast<std::uint16_t>((before >> 8U) ^ tables[0][before & 0xFFU]);
        }
    return tables;
}();
constexpr auto kTable32 = TableOf<std::uint32_t>(0xEDB88320);

} // namespace

std::uint16_t Crc16(std::uint16_t seed, std::string_view bytes)
{
    std::uint64_t rest = seed;
    const char* at = bytes.data();
    for (const char* const last = at + bytes.size() / 8 * 8; at != last; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, at, sizeof word);
        word ^= rest;
        // Written out: the compiler keeps it a loop, which takes twice the time.
        const auto part = [word](unsigned i) { return kTables16[7 - i][word >> (8 * i) & 0xFFU]; };
        rest = part(0) ^ part(1) ^ part(2) ^ part(3) ^ part(4) ^ part(5) ^ part(6) ^ part(7);
    }
    for (const char c : bytes.substr(bytes.size() / 8 * 8))
        rest = (rest >> 8U) ^ kTables16[0][(rest ^ static_cast<unsigned char>(c)) & 0xFFU];
    return static_cast<std::uint16_t>(rest);
}

std::uint32_t Crc32(std::string_view bytes)
{
    std::uint32_t rest = 0xFFFFFFFFU;
    for (const char c : bytes)
        rest = (rest >> 8U) ^ kTable32[(rest ^ static_cast<unsigned char>(c)) & 0xFFU];
    return ~rest;
}

namespace {

constexpr std::size_t kSummedBlock = 32;

#ifdef __SSE2__
/// Adds the sum of four lanes to `sum`.
void AddLanes(__m128i lanes, std::uint32_t& sum)
{
    std::uint32_t parts[4];
    std::memcpy(parts, &lanes, sizeof parts);
    sum += parts[0] + parts[1] + parts[2] + parts[3];
}

/// Sixteen bytes, each times its weight: those of `weights` for the first eight, eight less for the others.
__m128i Weighted(__m128i bytes, __m128i weights)
{
    const __m128i zero = _mm_setzero_si128();
    return _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi8(bytes, zero), weights),
                         _mm_madd_epi16(_mm_unpackhi_epi8(bytes, zero), _mm_sub_epi16(weights, _mm_set1_epi16(8))));
}
#endif

#if defined(__x86_64__) && defined(__GNUC__) && !defined(_WIN32)
#define SM_WIDE_SUMS
/// The same as AddBlocks, for processors that know 32 bytes at once.
__attribute__((target("avx2"))) void AddWideBlocks(const char* bytes, std::size_t blocks, std::uint32_t& low,
                                                   std::uint32_t& high)
{
    const __m256i zero = _mm256_setzero_si256(), ones = _mm256_set1_epi16(1);
    const __m256i weights = _mm256_set_epi8(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21,
                                            22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32);
    __m256i sums = zero, before = zero, weighted = zero; // before: the sums at the start of each block
    for (std::size_t i = 0; i < blocks; ++i, bytes += kSummedBlock) {
        const __m256i block = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
        before = _mm256_add_epi32(before, sums);
        sums = _mm256_add_epi32(sums, _mm256_sad_epu8(block, zero));
        weighted = _mm256_add_epi32(weighted, _mm256_madd_epi16(_mm256_maddubs_epi16(block, weights), ones));
    }
    high += static_cast<std::uint32_t>(blocks * kSummedBlock) * low;
    weighted = _mm256_add_epi32(weighted, _mm256_slli_epi32(before, 5)); // times 32
    AddLanes(_mm256_castsi256_si128(weighted), high);
    AddLanes(_mm256_extracti128_si256(weighted, 1), high);
    AddLanes(_mm256_castsi256_si128(sums), low);
    AddLanes(_mm256_extracti128_si256(sums, 1), low);
}

bool KnowsWideBlocks()
{
    static const bool kKnows = __builtin_cpu_supports("avx2");
    return kKnows;
}
#endif

/// The two sums of a page over whole blocks: each byte counts for itself, and in the second sum once more for each byte
/// from it to the end.
void AddBlocks(const char* bytes, std::size_t blocks, std::uint32_t& low, std::uint32_t& high)
{
#ifdef SM_WIDE_SUMS
    if (KnowsWideBlocks()) {
        AddWideBlocks(bytes, blocks, low, high);
        return;
    }
#endif
    high += static_cast<std::uint32_t>(blocks * kSummedBlock) * low;
#ifdef __SSE2__
    const __m128i zero = _mm_setzero_si128();
    const __m128i first = _mm_set_epi16(25, 26, 27, 28, 29, 30, 31, 32),
                  second = _mm_sub_epi16(first, _mm_set1_epi16(16));
    __m128i sums = zero, before = zero, weighted = zero; // before: the sums at the start of each block
    for (std::size_t i = 0; i < blocks; ++i, bytes += kSummedBlock) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + kSummedBlock / 2));
        before = _mm_add_epi32(before, sums);
        sums = _mm_add_epi32(sums, _mm_add_epi32(_mm_sad_epu8(a, zero), _mm_sad_epu8(b, zero)));
        weighted = _mm_add_epi32(weighted, _mm_add_epi32(Weighted(a, first), Weighted(b, second)));
    }
    AddLanes(sums, low);
    AddLanes(_mm_slli_epi32(before, 5), high); // times 32
    AddLanes(weighted, high);
#else
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < blocks * kSummedBlock; ++i) {
        const std::uint32_t byte = static_cast<unsigned char>(bytes[i]);
        sum += byte;
        high += sum;
    }
    low += sum;
#endif
}

} // namespace

std::uint32_t PageSum(std::uint32_t seed, std::string_view bytes)
{
    // The largest run after which neither sum can have left 32 bits.
    constexpr std::size_t kRun = 0x15B0;
    constexpr std::uint32_t kModulus = 0xFFF1;
    std::uint32_t low = seed & 0xFFFFU;
    std::uint32_t high = seed >> 16U;
    while (!bytes.empty()) {
        std::string_view run = bytes.substr(0, kRun);
        bytes.remove_prefix(run.size());
        const std::size_t blocks = run.size() / kSummedBlock;
        AddBlocks(run.data(), blocks, low, high);
        run.remove_prefix(blocks * kSummedBlock);
        for (const char c : run) {
            low += static_cast<unsigned char>(c);
            high += low;
        }
        low %= kModulus;
        high %= kModulus;
    }
    return (high << 16U) | low;
}

} // namespace sm::drawing::dwg
