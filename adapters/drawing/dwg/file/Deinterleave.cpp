// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of interleaved codewords are a table with a row for each place in a codeword: its columns are wanted.
#include "dwg/file/CodedPages.h"

#include <algorithm>
#include <span>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace sm::drawing::dwg {

namespace {

#ifdef __SSE2__
constexpr std::uint64_t kRows = 8, kColumns = 16;

struct Rows {
    __m128i row[kRows];
};

/// Eight rows of sixteen bytes, `from` bytes apart, become columns, `to` bytes apart.
void Turn(const char* source, std::uint64_t from, char* target, std::uint64_t to)
{
    Rows rows, turned;
    for (std::uint64_t i = 0; i < kRows; ++i)
        rows.row[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i * from));
    // Rows i and i + 4 are merged byte by byte. Done three times, each has two columns.
    const auto merge = [](const Rows& in, Rows& out) {
        for (std::size_t i = 0; i < kRows / 2; ++i) {
            out.row[2 * i] = _mm_unpacklo_epi8(in.row[i], in.row[i + kRows / 2]);
            out.row[2 * i + 1] = _mm_unpackhi_epi8(in.row[i], in.row[i + kRows / 2]);
        }
    };
    merge(rows, turned);
    merge(turned, rows);
    merge(rows, turned);
    for (std::uint64_t i = 0; i < kRows; ++i, target += 2 * to) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(target), turned.row[i]);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(target + to), _mm_unpackhi_epi64(turned.row[i], turned.row[i]));
    }
}

/// All of a table that has no less than a tile's rows and columns. The last tiles lie over those before them. Row by
/// row: the source is met in the order in which the machine fetches it, and of each column one line of its cache waits.
void TurnAll(const char* source, std::uint64_t count, std::uint64_t data, char* target)
{
    for (std::uint64_t row = 0; row < data; row += kRows) {
        row = std::min(row, data - kRows);
        for (std::uint64_t word = 0; word < count; word += kColumns) {
            word = std::min(word, count - kColumns);
            Turn(source + row * count + word, count, target + word * data + row, data);
        }
    }
}
#endif

} // namespace

std::string_view Deinterleave(std::string_view bytes, std::uint64_t count, std::uint64_t data, std::string& room)
{
    if (room.size() < count * data)
        room.resize(count * data);
    const std::span<char> columns(room.data(), count * data);
#ifdef __SSE2__
    if (count >= kColumns && data >= kRows && bytes.size() >= count * data) {
        TurnAll(bytes.data(), count, data, columns.data());
        return {columns.data(), columns.size()};
    }
#endif
    std::ranges::fill(columns, '\0');
    for (std::uint64_t j = 0; j < data && !bytes.empty(); ++j) {
        const std::string_view row = bytes.substr(0, count);
        for (std::size_t i = 0; i < row.size(); ++i)
            columns[i * data + j] = row[i];
        bytes.remove_prefix(row.size());
    }
    return {columns.data(), columns.size()};
}

} // namespace sm::drawing::dwg
