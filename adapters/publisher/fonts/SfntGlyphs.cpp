// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/SfntGlyphs.h"

#include "fonts/SfntTables.h"

#include <algorithm>

namespace sm::publisher {

namespace {

constexpr std::size_t kHeadSize = 54, kHheaSize = 36, kMaxpSize = 32;

std::int16_t Signed16(std::string_view bytes, std::size_t at)
{
    return static_cast<std::int16_t>(BigEndian(bytes, at, 2));
}

void PutWords(std::string& out, std::initializer_list<std::int32_t> words)
{
    for (const std::int32_t word : words) {
        PutBigEndian(out, static_cast<std::uint32_t>(word), 2);
    }
}

/// The bytes of a glyph between two places of the glyf table; nothing when they can't be.
std::optional<std::string> Outline(std::string_view loca, std::string_view glyf, std::size_t glyph)
{
    const std::size_t begin = BigEndian(loca, 4 * glyph, 4), end = BigEndian(loca, 4 * glyph + 4, 4);
    if (begin > end || end > glyf.size()) {
        return std::nullopt;
    }
    const std::string_view bytes = glyf.substr(begin, end - begin);
    const bool whole = bytes.empty() || (bytes.size() >= 10 && bytes.size() % 2 == 0 && Signed16(bytes, 0) >= 0);
    return whole ? std::optional<std::string>(bytes) : std::nullopt;
}

struct Extent {
    std::int32_t xMin = 0, yMin = 0, xMax = 0, yMax = 0, widest = 0;

    void Add(const SfntGlyph& glyph)
    {
        widest = std::max<std::int32_t>(widest, glyph.advance);
        if (glyph.outline.empty()) {
            return;
        }
        xMin = std::min<std::int32_t>(xMin, Signed16(glyph.outline, 2));
        yMin = std::min<std::int32_t>(yMin, Signed16(glyph.outline, 4));
        xMax = std::max<std::int32_t>(xMax, Signed16(glyph.outline, 6));
        yMax = std::max<std::int32_t>(yMax, Signed16(glyph.outline, 8));
    }
};

std::string HeadTable(std::uint16_t unitsPerEm, const Extent& extent)
{
    std::string table;
    PutBigEndian(table, 0x00010000, 4);
    PutBigEndian(table, 0x00010000, 4);
    PutBigEndian(table, 0, 4);          // the sum over the file, put in when it is whole
    PutBigEndian(table, 0x5F0F3CF5, 4); // magic number
    PutWords(table, {0, unitsPerEm});
    table.append(16, '\0'); // dates
    PutWords(table, {extent.xMin, extent.yMin, extent.xMax, extent.yMax, 0, 3, 2, 1, 0});
    return table;
}

std::string HheaTable(const Extent& extent, std::size_t count)
{
    std::string table;
    PutBigEndian(table, 0x00010000, 4);
    PutWords(table, {extent.yMax, extent.yMin, 0, extent.widest, extent.xMin, 0, extent.xMax, 1});
    table.append(14, '\0');
    PutBigEndian(table, static_cast<std::uint32_t>(count), 2);
    return table;
}

/// How many points an outline that isn't made of others has: one more than the last contour's end.
std::uint32_t Points(const std::string& outline)
{
    const std::uint32_t contours = BigEndian(outline, 0, 2);
    return contours == 0 ? 0 : BigEndian(outline, 10 + 2 * (contours - 1), 2) + 1;
}

std::string MaxpTable(const std::vector<SfntGlyph>& glyphs)
{
    std::uint32_t points = 0, contours = 0;
    for (const SfntGlyph& glyph : glyphs) {
        points = std::max(points, Points(glyph.outline));
        contours = std::max(contours, BigEndian(glyph.outline, 0, 2));
    }
    std::string table;
    PutBigEndian(table, 0x00010000, 4);
    for (const std::uint32_t word : {static_cast<std::uint32_t>(glyphs.size()), points, contours, 0U, 0U, 1U}) {
        PutBigEndian(table, word, 2);
    }
    table.append(16, '\0');
    return table;
}

} // namespace

std::optional<SfntSubset> ReadSfntSubset(std::string_view sfnt)
{
    const auto tables = SfntTables(sfnt);
    const auto table = [&](const char* tag, std::size_t least) { return SfntTable(tables, tag, least); };
    const auto head = table("head", kHeadSize), hhea = table("hhea", kHheaSize), maxp = table("maxp", kMaxpSize);
    const auto hmtx = table("hmtx", 0), loca = table("loca", 0), glyf = table("glyf", 0);
    if (!head || !hhea || !maxp || !hmtx || !loca || !glyf || BigEndian(*head, 50, 2) != 1) {
        return std::nullopt;
    }
    SfntSubset subset;
    subset.unitsPerEm = static_cast<std::uint16_t>(std::max<std::uint32_t>(1, BigEndian(*head, 18, 2)));
    const std::size_t count = BigEndian(*maxp, 4, 2);
    if (BigEndian(*hhea, 34, 2) != count || hmtx->size() < 4 * count || loca->size() < 4 * count + 4) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < count; ++i) {
        auto outline = Outline(*loca, *glyf, i);
        if (!outline) {
            return std::nullopt;
        }
        subset.glyphs.push_back(
            {static_cast<std::uint16_t>(BigEndian(*hmtx, 4 * i, 2)), Signed16(*hmtx, 4 * i + 2), std::move(*outline)});
    }
    return subset;
}

std::string WriteSfntSubset(const SfntSubset& subset, SfntFacts& facts)
{
    Extent extent;
    std::string glyf, hmtx, loca;
    for (const SfntGlyph& glyph : subset.glyphs) {
        extent.Add(glyph);
        PutWords(hmtx, {glyph.advance, glyph.leftBearing});
        PutBigEndian(loca, static_cast<std::uint32_t>(glyf.size()), 4);
        glyf += glyph.outline;
    }
    PutBigEndian(loca, static_cast<std::uint32_t>(glyf.size()), 4);
    const auto thousandths = [&](std::int32_t value) { return value * 1000 / std::max<int>(1, subset.unitsPerEm); };
    facts = {thousandths(extent.yMax),
             thousandths(extent.yMin),
             {thousandths(extent.xMin), thousandths(extent.yMin), thousandths(extent.xMax), thousandths(extent.yMax)}};
    const std::string head = HeadTable(subset.unitsPerEm, extent);
    const std::string hhea = HheaTable(extent, subset.glyphs.size()), maxp = MaxpTable(subset.glyphs);
    return JoinSfnt({{"glyf", glyf}, {"head", head}, {"hhea", hhea}, {"hmtx", hmtx}, {"loca", loca}, {"maxp", maxp}});
}

} // namespace sm::publisher
