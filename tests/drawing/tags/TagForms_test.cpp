// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/Finding.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Texts.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

struct LineEndRow {
    const char* name;
    const char* lineEnd;
};

class LineEnds : public ::testing::TestWithParam<LineEndRow> {};

TEST_P(LineEnds, ReadTheSameLine)
{
    const auto drawing = DxfText(GetParam().lineEnd)
                             .Section("ENTITIES")
                             .Raw("  0\nLINE\n  8\n0\n 10\n1.5\n 20\n-2\n 11\n+3\n 21\n4e1\n")
                             .EndSection()
                             .End()
                             .Open();
    LineData line;
    ASSERT_EQ(ModelEntities(*drawing).size(), 1U);
    Read(*drawing, ModelEntities(*drawing)[0], line);
    EXPECT_EQ(line.start, (Vec3{1.5, -2, 0}));
    EXPECT_EQ(line.end, (Vec3{3, 40, 0}));
    EXPECT_TRUE(drawing->Findings().empty());
}

INSTANTIATE_TEST_SUITE_P(Forms, LineEnds,
                         ::testing::Values(LineEndRow{"Lf", "\n"}, LineEndRow{"CrLf", "\r\n"}, LineEndRow{"Cr", "\r"},
                                           LineEndRow{"CrCrLf", "\r\r\n"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TagForms, MixedLineEndsAreReadAlike)
{
    const auto drawing =
        Drawing::FromBytes("0\nSECTION\r\n2\rENTITIES\n0\r\nCIRCLE\r40\n2.5\r\n0\nENDSEC\n0\rEOF", "mixed.dxf");
    CircleData circle;
    ASSERT_EQ(ModelEntities(*drawing).size(), 1U);
    Read(*drawing, ModelEntities(*drawing)[0], circle);
    EXPECT_EQ(circle.radius, 2.5);
    EXPECT_TRUE(drawing->Findings().empty());
}

TEST(TagForms, AByteOrderMarkAndAControlZAreNoDamage)
{
    const auto drawing = Drawing::FromBytes("\xEF\xBB\xBF"
                                            "0\nSECTION\n2\nENTITIES\n0\nTEXT\n1\nGr\xC3\xB6\xC3\x9F"
                                            "e\n0\nENDSEC\n0\nEOF\n\x1a",
                                            "bom.dxf");
    TextData text;
    Read(*drawing, ModelEntities(*drawing)[0], text);
    EXPECT_EQ(text.text, "Gr\xC3\xB6\xC3\x9F"
                         "e");
    EXPECT_EQ(drawing->CodePage(), "UTF-8");
    EXPECT_TRUE(drawing->Findings().empty());
}

struct NumberRow {
    const char* name;
    const char* text;
    double value;
};

class Numbers : public ::testing::TestWithParam<NumberRow> {};

TEST_P(Numbers, AreReadWhateverTheirSpelling)
{
    EXPECT_EQ(ReadOnly<CircleData>("0\nCIRCLE\n40\n" + std::string(GetParam().text) + "\n").radius, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Spellings, Numbers,
                         ::testing::Values(NumberRow{"Plain", "12.25", 12.25}, NumberRow{"Blanks", "   7 ", 7},
                                           NumberRow{"Plus", "+0.5", 0.5}, NumberRow{"NoLeadingZero", ".125", 0.125},
                                           NumberRow{"Negative", "-3.75", -3.75}, NumberRow{"Exponent", "1.5E+3", 1500},
                                           NumberRow{"SmallExponent", "2.5e-3", 0.0025},
                                           NumberRow{"SeventeenDigits", "0.10000000000000001", 0.1},
                                           NumberRow{"ManyDigits", "123456789.98765432101234",
                                                     123456789.98765432101234},
                                           NumberRow{"CommaEndsTheNumber", "1,5", 1}, NumberRow{"TooLarge", "1e999", 0},
                                           NumberRow{"NotANumber", "nan", 0}, NumberRow{"Infinite", "inf", 0},
                                           NumberRow{"Words", "wide", 0}, NumberRow{"Empty", "", 0}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::drawing::testing
