// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/TrueTypeSubset.h"

#include <algorithm>
#include <array>

namespace sm::plotter {

namespace {

using Point = render::GlyphContours::Point;

void Put16(std::string& out, int value)
{
    out += static_cast<char>((value >> 8) & 0xFF);
    out += static_cast<char>(value & 0xFF);
}

void Put32(std::string& out, std::uint32_t value)
{
    Put16(out, static_cast<int>(value >> 16));
    Put16(out, static_cast<int>(value & 0xFFFF));
}

struct Box {
    int xMin = 0, yMin = 0, xMax = 0, yMax = 0;
};

Box BoxOf(const std::vector<Point>& points)
{
    Box box;
    if (!points.empty()) {
        const auto x = std::minmax_element(points.begin(), points.end(), [](auto& a, auto& b) { return a.x < b.x; });
        const auto y = std::minmax_element(points.begin(), points.end(), [](auto& a, auto& b) { return a.y < b.y; });
        box = {x.first->x, y.first->y, x.second->x, y.second->y};
    }
    return box;
}

/// One coordinate of the glyf table: nothing for no change, a byte for small changes, a word else. Returns flag bits
/// for the x axis; those of y are one bit further left.
int PutDelta(std::string& out, int delta)
{
    constexpr int kShort = 0x02, kSameOrPositive = 0x10;
    if (delta == 0) {
        return kSameOrPositive;
    }
    if (delta > -256 && delta < 256) {
        out += static_cast<char>(std::abs(delta));
        return kShort | (delta > 0 ? kSameOrPositive : 0);
    }
    Put16(out, delta);
    return 0;
}

std::string GlyphRecord(const render::GlyphContours& glyph)
{
    std::string out;
    if (glyph.points.empty()) {
        return out;
    }
    const Box box = BoxOf(glyph.points);
    Put16(out, static_cast<int>(glyph.ends.size()));
    for (const int value : {box.xMin, box.yMin, box.xMax, box.yMax}) {
        Put16(out, value);
    }
    for (const std::uint16_t end : glyph.ends) {
        Put16(out, end);
    }
    Put16(out, 0); // no instructions
    std::string flags, xs, ys;
    Point last{0, 0, true};
    for (const Point& point : glyph.points) {
        const int inX = PutDelta(xs, point.x - last.x);
        const int inY = PutDelta(ys, point.y - last.y) << 1;
        flags += static_cast<char>(inX | inY | (point.onCurve ? 1 : 0));
        last = point;
    }
    out += flags + xs + ys;
    out.resize((out.size() + 3) & ~std::size_t{3});
    return out;
}

struct Tables {
    std::string head, hhea, hmtx, loca, maxp;
    std::vector<std::string> glyphs;
    std::uint32_t glyfLength = 0;
};

struct Totals {
    Box box;
    int points = 0, contours = 0, widest = 0;
};

std::string HeadTable(int unitsPerEm, const Box& box)
{
    std::string t;
    Put32(t, 0x00010000);
    Put32(t, 0x00010000);
    Put32(t, 0);          // whole-file checksum: readers of embedded fonts don't look
    Put32(t, 0x5F0F3CF5); // magic number
    Put16(t, 0);
    Put16(t, unitsPerEm);
    t.append(16, '\0'); // dates
    for (const int value : {box.xMin, box.yMin, box.xMax, box.yMax, 0, 3, 2, 1, 0}) {
        Put16(t, value); // style, smallest size, direction, long loca, glyph format
    }
    return t;
}

std::string HheaTable(const Totals& totals, int glyphCount)
{
    std::string t;
    Put32(t, 0x00010000);
    for (const int value :
         {totals.box.yMax, totals.box.yMin, 0, totals.widest, totals.box.xMin, 0, totals.box.xMax, 1}) {
        Put16(t, value);
    }
    t.append(14, '\0');
    Put16(t, glyphCount);
    return t;
}

std::string MaxpTable(const Totals& totals, int glyphCount)
{
    std::string t;
    Put32(t, 0x00010000);
    for (const int value : {glyphCount, totals.points, totals.contours, 0, 0, 1}) {
        Put16(t, value);
    }
    t.append(16, '\0');
    return t;
}

void AddGlyph(Tables& tables, Totals& totals, const render::FontFace* face, std::uint32_t id)
{
    static const render::GlyphContours kNone;
    const render::GlyphContours& glyph = face != nullptr ? face->Contours(id) : kNone;
    const int advance = face != nullptr ? face->Advance(id) : 0;
    const Box box = BoxOf(glyph.points);
    Put16(tables.hmtx, advance);
    Put16(tables.hmtx, box.xMin);
    Put32(tables.loca, tables.glyfLength);
    tables.glyphs.push_back(GlyphRecord(glyph));
    tables.glyfLength += static_cast<std::uint32_t>(tables.glyphs.back().size());
    totals.box = {std::min(totals.box.xMin, box.xMin), std::min(totals.box.yMin, box.yMin),
                  std::max(totals.box.xMax, box.xMax), std::max(totals.box.yMax, box.yMax)};
    totals.points = std::max(totals.points, static_cast<int>(glyph.points.size()));
    totals.contours = std::max(totals.contours, static_cast<int>(glyph.ends.size()));
    totals.widest = std::max(totals.widest, advance);
}

std::uint32_t Checksum(const std::string& table)
{
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
        sum += static_cast<std::uint32_t>(static_cast<unsigned char>(table[i])) << (24 - 8 * (i % 4));
    }
    return sum;
}

/// The table directory and all tables but glyf, which comes last in the file.
std::string FrontPart(const Tables& tables)
{
    struct Entry {
        const char* tag;
        const std::string* bytes;
    };
    const std::string glyf;
    const std::array<Entry, 6> entries{{{"glyf", &glyf},
                                        {"head", &tables.head},
                                        {"hhea", &tables.hhea},
                                        {"hmtx", &tables.hmtx},
                                        {"loca", &tables.loca},
                                        {"maxp", &tables.maxp}}};
    std::string directory, data;
    Put32(directory, 0x00010000);
    for (const int value : {6, 64, 2, 32}) {
        Put16(directory, value);
    }
    std::uint32_t offset = 12 + 16 * 6;
    std::uint32_t glyfOffset = offset;
    for (const Entry& entry : entries) {
        glyfOffset += static_cast<std::uint32_t>((entry.bytes->size() + 3) & ~std::size_t{3});
    }
    for (const Entry& entry : entries) {
        const bool isGlyf = entry.bytes == &glyf;
        directory += entry.tag;
        Put32(directory, Checksum(*entry.bytes));
        Put32(directory, isGlyf ? glyfOffset : offset);
        Put32(directory, isGlyf ? tables.glyfLength : static_cast<std::uint32_t>(entry.bytes->size()));
        data += *entry.bytes;
        data.resize((data.size() + 3) & ~std::size_t{3});
        offset = 12 + 16 * 6 + static_cast<std::uint32_t>(data.size());
    }
    return directory + data;
}

} // namespace

std::vector<std::string> MakeTrueTypeSubset(const render::FontFace& face, const std::vector<std::uint32_t>& glyphs)
{
    Tables tables;
    Totals totals;
    AddGlyph(tables, totals, nullptr, 0);
    for (const std::uint32_t glyph : glyphs) {
        AddGlyph(tables, totals, &face, glyph);
    }
    Put32(tables.loca, tables.glyfLength);
    const int count = static_cast<int>(glyphs.size()) + 1;
    tables.head = HeadTable(face.UnitsPerEm(), totals.box);
    tables.hhea = HheaTable(totals, count);
    tables.maxp = MaxpTable(totals, count);

    constexpr std::size_t kLongest = 60000;
    std::vector<std::string> strings{FrontPart(tables)};
    for (const std::string& glyph : tables.glyphs) {
        if (strings.size() == 1 || strings.back().size() + glyph.size() > kLongest) {
            strings.emplace_back();
        }
        strings.back() += glyph;
    }
    return strings;
}

} // namespace sm::plotter
