// SPDX-License-Identifier: GPL-3.0-or-later
// TrueType subsets taken apart and put together: what is refused, and that nothing of a glyph is lost.
#include "fonts/SfntGlyphs.h"

#include <gtest/gtest.h>

namespace sm::publisher {
namespace {

/// The record of a triangle from (x, 0): one contour of three points on the curve (OpenType 1.9, "glyf").
std::string Triangle(char x)
{
    using namespace std::string_literals;
    return "\0\1\0\0\0\0\0\x64\0\x64\0\2\0\0\x37\x37\x37"s + x + "\x64\x64\0\0\x64\0"s;
}

SfntSubset TwoTriangles()
{
    return {1000, {{500, 0, ""}, {600, 1, Triangle(1)}, {700, -2, Triangle(2)}, {250, 0, ""}}};
}

std::string Written(const SfntSubset& subset)
{
    SfntFacts facts;
    return WriteSfntSubset(subset, facts);
}

TEST(SfntGlyphs, ComeBackAsTheyWereWritten)
{
    const auto read = ReadSfntSubset(Written(TwoTriangles()));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->unitsPerEm, 1000);
    EXPECT_EQ(read->glyphs, TwoTriangles().glyphs);
}

TEST(SfntGlyphs, TellTheFactsInThousandths)
{
    SfntSubset subset = TwoTriangles();
    subset.unitsPerEm = 2000;
    SfntFacts facts;
    WriteSfntSubset(subset, facts);
    EXPECT_EQ(std::vector<std::int32_t>(
                  {facts.ascent, facts.descent, facts.box[0], facts.box[1], facts.box[2], facts.box[3]}),
              std::vector<std::int32_t>({50, 0, 0, 0, 50, 50}));
}

/// The sum over the words of a whole font file is a constant (OpenType 1.9, "head").
TEST(SfntGlyphs, SumUpAsTheFormatAsks)
{
    const std::string bytes = Written(TwoTriangles());
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        sum += static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (24 - 8 * (i % 4));
    EXPECT_EQ(sum, 0xB1B0AFBAU);
}

TEST(SfntGlyphs, RefuseWhatDoesNotFit)
{
    struct Row {
        const char* what;
        std::size_t place; ///< behind the table's beginning
        const char* table;
        std::string bytes;
    };
    const Row rows[] = {
        {"a table that ends behind the file", 0, "", ""},
        {"short offsets", 50, "head", std::string(2, '\0')},
        {"more glyphs than places", 4, "maxp", std::string("\0\x09", 2)},
        {"places that go back", 12, "loca", std::string("\0\0\0\0", 4)},
        {"a place behind the table", 16, "loca", std::string("\0\0\xFF\xFF", 4)},
        {"a glyph made of others", 0, "glyf", std::string("\xFF\xFF", 2)},
    };
    for (const Row& row : rows) {
        std::string bytes = Written(TwoTriangles());
        if (*row.table == '\0') {
            bytes.resize(bytes.size() / 2);
        } else {
            const std::size_t entry = bytes.find(row.table);
            const auto offset =
                static_cast<unsigned char>(bytes[entry + 10]) * 256U + static_cast<unsigned char>(bytes[entry + 11]);
            bytes.replace(offset + row.place, row.bytes.size(), row.bytes);
        }
        EXPECT_FALSE(ReadSfntSubset(bytes)) << row.what;
    }
    EXPECT_FALSE(ReadSfntSubset(""));
}

} // namespace
} // namespace sm::publisher
