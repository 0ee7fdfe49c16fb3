// SPDX-License-Identifier: GPL-3.0-or-later
// Solids whose save is binary and stands in the data section of the file; damaged saves.
#include "drawing/DxfText.h"

#include "acis/AcisCurves.h"
#include "drawing/Finding.h"
#include "drawing/entities/Solids.h"

#include <cstring>
#include <gtest/gtest.h>

namespace sm::drawing::testing {
namespace {

template <class T> std::string Raw(T value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

/// Writes the values of a binary save, each behind its byte of kind.
class Save {
public:
    explicit Save(const std::string& head = "ACIS BinaryFile")
        : m_bytes(head + Raw(std::int32_t{21800}) + Raw(std::int32_t{0}) + Raw(std::int32_t{1}) + Raw(std::int32_t{0}))
    {
        Text("Tests");
        Reals(6, {1});
    }
    Save& Name(const std::string& name, const std::string& first = "")
    {
        if (!first.empty())
            Word(0x0E, first);
        return Word(0x0D, name);
    }
    Save& Text(const std::string& text) { return Word(0x07, text); }
    Save& Pointer(std::int32_t record)
    {
        m_bytes += '\x0C' + Raw(record);
        return *this;
    }
    Save& Int(std::int32_t value)
    {
        m_bytes += '\x04' + Raw(value);
        return *this;
    }
    Save& Reals(int kind, std::initializer_list<double> values)
    {
        m_bytes += static_cast<char>(kind);
        for (const double value : values)
            m_bytes += Raw(value);
        return *this;
    }
    Save& Byte(int kind)
    {
        m_bytes += static_cast<char>(kind);
        return *this;
    }
    Save& End() { return Byte(0x11); }
    [[nodiscard]] const std::string& Bytes() const { return m_bytes; }

private:
    Save& Word(int kind, const std::string& text)
    {
        m_bytes += static_cast<char>(kind);
        m_bytes += static_cast<char>(text.size());
        m_bytes += text;
        return *this;
    }
    std::string m_bytes;
};

/// A body moved by (10, 0, 0) and twice as large, with a straight edge from (0, 0, 0) to (5, 0, 0).
Save Body()
{
    Save save;
    save.Name("body").Pointer(-1).Int(-1).Pointer(-1).Pointer(1).End();
    save.Name("transform").Pointer(-1).Int(-1);
    save.Reals(0x14, {1, 0, 0}).Reals(0x14, {0, 1, 0}).Reals(0x14, {0, 0, 1}).Reals(0x14, {10, 0, 0}).Reals(6, {2});
    save.Byte(0x0B).Byte(0x0B).Byte(0x0B).End();
    save.Name("edge").Pointer(-1).Int(-1).Pointer(-1).Pointer(3).Reals(6, {0}).Pointer(4).Reals(6, {5}).Pointer(-1);
    save.Pointer(7).Byte(0x0B).Text("unknown").End();
    save.Name("vertex").Pointer(-1).Int(-1).Pointer(-1).Pointer(2).Int(0).Pointer(5).End();
    save.Name("vertex").Pointer(-1).Int(-1).Pointer(-1).Pointer(2).Int(1).Pointer(6).End();
    save.Name("point").Pointer(-1).Int(-1).Pointer(-1).Reals(0x13, {0, 0, 0}).End();
    save.Name("point").Pointer(-1).Int(-1).Pointer(-1).Reals(0x13, {5, 0, 0}).End();
    save.Name("curve", "straight").Pointer(-1).Int(-1).Pointer(-1).Reals(0x13, {0, 0, 0}).Reals(0x14, {1, 0, 0});
    save.Byte(0x0B).Byte(0x0B).End();
    return save;
}

std::string Hex(const std::string& bytes)
{
    std::string hex;
    for (const char c : bytes) {
        hex.push_back("0123456789ABCDEF"[static_cast<unsigned char>(c) >> 4]);
        hex.push_back("0123456789ABCDEF"[static_cast<unsigned char>(c) & 15]);
    }
    return hex;
}

TEST(BinarySolids, StandInTheDataSection)
{
    const std::string hex = Hex(Body().Bytes());
    DxfText text;
    text.Section("ENTITIES").Raw("0\nREGION\n5\nA1\n8\n0\n290\n1\n2\n{id}\n").EndSection();
    text.Section("ACDSDATA").Raw("0\nACDSSCHEMA\n90\n0\n0\nACDSRECORD\n90\n1\n2\nAcDbDs::ID\n280\n10\n320\nA1\n");
    text.Raw("2\nThumbnail\n310\nFFFF\n2\nASM_Data\n280\n15\n94\n" + std::to_string(hex.size() / 2) + "\n");
    text.Tag(310, hex.substr(0, 100)).Tag(310, hex.substr(100)).EndSection().End();
    const auto drawing = text.Open();
    EXPECT_TRUE(drawing->Findings().empty());
    SolidData solid;
    Read(*drawing, ModelEntities(*drawing).front(), solid);
    EXPECT_TRUE(solid.complete);
    ASSERT_EQ(solid.edges.size(), 1U);
    EXPECT_EQ(solid.edges[0].start, (Vec3{10, 0, 0}));
    EXPECT_EQ(solid.edges[0].end, (Vec3{20, 0, 0}));
}

/// Release 1 has one line of heading, edges without parameters, and the sense of a curve as a number.
TEST(TextSolids, OfTheFirstReleaseAreRead)
{
    const AcisRecords records("106 8 1 0\n"
                              "edge $-1 $2 $3 $-1 $6 0 #\n"
                              "edge $-1 $2 $3 $-1 $7 1 #\n"
                              "vertex $-1 $0 $4 #\n"
                              "vertex $-1 $0 $5 #\n"
                              "point $-1 1 0 0 #\n"
                              "point $-1 0 1 0 #\n"
                              "straight-curve $-1 1 0 0 -1 1 0 I I #\n"
                              "ellipse-curve $-1 0 0 0 0 0 1 1 0 0 1 I I #\n");
    std::vector<SolidEdge> edges;
    EXPECT_TRUE(AcisCurves(records).Append(edges));
    ASSERT_EQ(edges.size(), 2U);
    EXPECT_EQ(edges[0].start, (Vec3{1, 0, 0}));
    EXPECT_EQ(edges[0].end, (Vec3{0, 1, 0}));
    EXPECT_EQ(edges[1].kind, SolidEdge::Kind::Arc);
    EXPECT_NEAR(edges[1].from, 1.5707963, 1e-6); // from the second vertex, three quarters of a turn on
    EXPECT_NEAR(edges[1].sweep, 4.7123890, 1e-6);
}

TEST(BinarySolids, EndWhereTheyAreCutOff)
{
    const std::string whole = Body().Bytes();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const AcisRecords records(std::string_view(whole).substr(0, length));
        std::vector<SolidEdge> edges;
        AcisCurves(records).Append(edges);
        EXPECT_EQ(edges.size(), length == whole.size() ? 1U : edges.size());
        EXPECT_LE(edges.size(), 1U);
    }
}

TEST(BinarySolids, SurviveEachChangedByte)
{
    const std::string whole = Body().Bytes();
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const int change : {0x01, 0x0F, 0x7F, 0xFF}) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            const AcisRecords records(damaged);
            std::vector<SolidEdge> edges;
            AcisCurves(records).Append(edges);
            EXPECT_LE(edges.size(), 1U);
        }
}

TEST(BinarySolids, SplinesAreTrimmedToTheirEdge)
{
    // A straight spline from (0, 0, 0) to (10, 0, 0); its edge goes from 2 to 6.
    Save save;
    save.Name("edge").Pointer(1).Pointer(2).Pointer(5).Byte(0x0B).End();
    save.Name("vertex").Pointer(3).End();
    save.Name("vertex").Pointer(4).End();
    save.Name("point").Reals(0x13, {2, 0, 0}).End();
    save.Name("point").Reals(0x13, {6, 0, 0}).End();
    save.Name("curve", "intcurve").Byte(0x0B).Byte(0x0F).Name("exactcur").Name("nubs").Int(1).Int(0).Int(2);
    save.Reals(6, {0}).Int(1).Reals(6, {1}).Int(1).Reals(0x13, {0, 0, 0}).Reals(0x13, {10, 0, 0}).Byte(0x10).End();
    const AcisRecords records(save.Bytes());
    std::vector<SolidEdge> edges;
    EXPECT_TRUE(AcisCurves(records).Append(edges));
    ASSERT_EQ(edges.size(), 1U);
    EXPECT_EQ(edges[0].degree, 1);
    EXPECT_NEAR(edges[0].points.front().x, 2, 1e-6);
    EXPECT_NEAR(edges[0].points.back().x, 6, 1e-6);
}

} // namespace
} // namespace sm::drawing::testing
