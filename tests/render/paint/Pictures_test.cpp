// SPDX-License-Identifier: GPL-3.0-or-later
// Entities of unknown kinds, drawn by the picture they bring along.
#include "render/SmallDrawing.h"

#include <cstring>
#include <gmock/gmock.h>

namespace sm::render {
namespace {

std::string Int(std::int32_t value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

std::string Reals(std::initializer_list<double> values)
{
    std::string bytes;
    for (const double value : values) {
        std::string one(sizeof value, '\0');
        std::memcpy(one.data(), &value, sizeof value);
        bytes += one;
    }
    return bytes;
}

std::string Step(std::int32_t kind, const std::string& values)
{
    return Int(static_cast<std::int32_t>(values.size() + 8)) + Int(kind) + values;
}

std::string Proxy(const std::string& steps, const char* name = "ACAD_PROXY_ENTITY", int sizeCode = 92)
{
    const std::string bytes = Int(static_cast<std::int32_t>(steps.size() + 8)) + Int(1) + steps;
    std::string hex;
    for (const char c : bytes) {
        hex.push_back("0123456789ABCDEF"[static_cast<unsigned char>(c) >> 4]);
        hex.push_back("0123456789ABCDEF"[static_cast<unsigned char>(c) & 15]);
    }
    std::string text =
        "0\n" + std::string(name) + "\n8\n0\n" + std::to_string(sizeCode) + "\n" + std::to_string(bytes.size()) + "\n";
    for (std::size_t at = 0; at < hex.size(); at += 254) {
        text += "310\n" + hex.substr(at, 254) + "\n";
    }
    return text + "93\n0\n310\nFFFFFFFFFFFFFFFFFF\n";
}

const std::string kPictureLine = Step(6, Int(2) + Reals({0, 0, 0, 10, 0, 0}));

struct PictureRow {
    const char* name;
    std::string steps;
    Lines lines;
};

class PicturesTest : public testing::TestWithParam<PictureRow> {};

TEST_P(PicturesTest, AreDrawn)
{
    SmallDrawing drawing;
    drawing.raw = Proxy(GetParam().steps);
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const PictureRow kPictureRows[] = {
    {"Polyline", kPictureLine, {"stroke 000000 0.25 m 0 0 l 10 0"}},
    {"ColorIndex", Step(14, Int(1)) + kPictureLine, {"stroke FF0000 0.25 m 0 0 l 10 0"}},
    {"TrueColor",
     Step(22, Int(static_cast<std::int32_t>(0xC2010203))) + kPictureLine,
     {"stroke 010203 0.25 m 0 0 l 10 0"}},
    {"Lineweight", Step(23, Int(50)) + kPictureLine, {"stroke 000000 0.5 m 0 0 l 10 0"}},
    {"Polygon", Step(7, Int(3) + Reals({0, 0, 0, 4, 0, 0, 4, 4, 0})), {"stroke 000000 0.25 m 0 0 l 4 0 l 4 4 h"}},
    {"FilledPolygon",
     Step(20, Int(1)) + Step(7, Int(3) + Reals({0, 0, 0, 4, 0, 0, 4, 4, 0})),
     {"fill 000000 evenodd m 0 0 l 4 0 l 4 4 h"}},
    {"Circle",
     Step(2, Reals({20, 20, 0, 1, 0, 0, 1})),
     {"stroke 000000 0.25 m 21 20 c 21 20.552 20.552 21 20 21 c 19.448 21 19 20.552 19 20 c 19 19.448 19.448 19 20 19 "
      "c "
      "20.552 19 21 19.448 21 20 h"}},
    {"ArcFromItsStart",
     Step(4, Reals({20, 20, 0, 1, 0, 0, 1, 0, 1, 0, 1.5707963267948966}) + Int(0)),
     {"stroke 000000 0.25 m 20 21 c 19.448 21 19 20.552 19 20"}},
    {"ArcThroughThreePoints",
     Step(5, Reals({2, 0, 0, 0, 2, 0, -2, 0, 0}) + Int(0)),
     {"stroke 000000 0.25 m 2 0 c 2 1.105 1.105 2 0 2 c -1.105 2 -2 1.105 -2 0"}},
    {"Mesh",
     Step(8, Int(2) + Int(2) + Reals({0, 0, 0, 4, 0, 0, 0, 4, 0, 4, 4, 0})),
     {"stroke 000000 0.25 m 0 0 l 4 0 m 0 4 l 4 4 m 0 0 l 0 4 m 4 0 l 4 4"}},
    {"Shell",
     Step(9, Int(3) + Reals({0, 0, 0, 4, 0, 0, 4, 4, 0}) + Int(4) + Int(3) + Int(0) + Int(1) + Int(2) + Int(0)),
     {"stroke 000000 0.25 m 0 0 l 4 0 l 4 4 h"}},
    {"Text",
     Step(10, Reals({5, 6, 0, 0, 0, 1, 0, 1, 0, 2, 1, 0}) + std::string("Hello\0\0\0", 8)),
     {"text 000000 [0 2 -2 0 5 6] Hello"}},
    {"WideText",
     Step(36, Reals({5, 6, 0, 0, 0, 1, 1, 0, 0, 2, 1, 0}) + std::string("\x16\x04\0\0", 4)),
     {"text 000000 [2 0 0 2 5 6] \xD0\x96"}},
    {"StyledWideText",
     Step(38, Reals({5, 6, 0, 0, 0, 1, 1, 0, 0}) + std::string("A\0\0\0", 4) + Int(1) + Int(0) + Reals({2, 1, 0, 1})),
     {"text 000000 [2 0 0 2 5 6] A"}},
    {"MatricesNest",
     Step(29, Reals({2, 0, 0, 5, 0, 2, 0, 5, 0, 0, 2, 0, 0, 0, 0, 1})) + kPictureLine +
         Step(29, Reals({1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1})) + kPictureLine + Step(31, "") +
         Step(31, "") + Step(31, "") + kPictureLine,
     {"stroke 000000 0.25 m 5 5 l 25 5", "stroke 000000 0.25 m 7 5 l 27 5", "stroke 000000 0.25 m 0 0 l 10 0"}},
    {"Ray", Step(13, Reals({90, 50, 0, 95, 50, 0})), {"stroke 000000 0.25 m 90 50 l 101 50"}},
    {"PackedPolyline", // 16: bulges follow; the points (1, 2), (5, 2), (5, 9) in full where they differ
     Step(33, std::string("\x44\x10\x34\x0C\x00\x00\x00\x00\x00\x03\xC0\xFC\x00\x00\x00\x00\x00\x00\x01\x03\x00\x00\x00"
                          "\x00\x00\x00\x14\x40\x0C\x00\x00\x00\x00\x00\x00\x89\x02\x60",
                          38)),
     {"stroke 000000 0.25 m 1 2 l 5 2 c 6.933 2 8.5 3.567 8.5 5.5 c 8.5 7.433 6.933 9 5 9"}},
    {"UnknownStepsAreSkipped", Step(51, Int(0)) + kPictureLine, {"stroke 000000 0.25 m 0 0 l 10 0"}},
    {"CountBeyondItsBytes",
     Step(6, Int(2000000000) + Reals({0, 0, 0})) + kPictureLine,
     {"stroke 000000 0.25 m 0 0 l 10 0"}},
    {"SizeBeyondTheEnd", kPictureLine + Int(2000000000) + Int(6), {"stroke 000000 0.25 m 0 0 l 10 0"}},
};

INSTANTIATE_TEST_SUITE_P(Steps, PicturesTest, testing::ValuesIn(kPictureRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(UnknownEntitiesTest, AreDrawnByTheirPicture)
{
    SmallDrawing drawing;
    drawing.raw = Proxy(kPictureLine, "AEC_WALL", 160);
    EXPECT_EQ(LinesOf(drawing), Lines{"stroke 000000 0.25 m 0 0 l 10 0"});
    EXPECT_EQ(Render(drawing).counts, "drawn 1");
}

TEST(UnknownEntitiesTest, PatchesAreNotDrawnByTheirFrame)
{
    SmallDrawing drawing;
    drawing.raw = Proxy(Step(20, Int(1)) + Step(7, Int(3) + Reals({0, 0, 0, 4, 0, 0, 4, 4, 0})), "OLE2FRAME");
    EXPECT_EQ(LinesOf(drawing), Lines{"fill 000000 evenodd m 0 0 l 4 0 l 4 4 h"});
    drawing.raw.replace(2, 9, "PDFUNDERLAY");
    EXPECT_EQ(LinesOf(drawing), Lines{});
}

TEST(UnknownEntitiesTest, AreReportedWithoutOne)
{
    SmallDrawing drawing;
    drawing.entities = "0 AEC_WALL | 8 0 | 92 5 | 90 1";
    EXPECT_EQ(Render(drawing).notDrawn, Lines{"AEC_WALL 0 1"});
}

TEST(PicturesTest, AreReportedWhenAPartIsMissing)
{
    SmallDrawing drawing;
    drawing.raw = Proxy(kPictureLine + Step(27, Int(0)));
    EXPECT_EQ(Render(drawing).remarks, Lines{"a part of an entity's own picture left out 1"});
}

} // namespace
} // namespace sm::render
