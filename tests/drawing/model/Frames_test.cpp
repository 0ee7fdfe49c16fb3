// SPDX-License-Identifier: GPL-3.0-or-later
// Where a drawing says which frames are seen.
#include "drawing/Drawing.h"

#include <gtest/gtest.h>

namespace sm::drawing {
namespace {

struct FrameRow {
    const char* name;
    std::string header, variables; ///< entries and objects of the dictionary of variables
    std::string objects;
    FrameSettings frames;
};

std::string Entry(const std::string& name, const std::string& handle)
{
    return "3\n" + name + "\n350\n" + handle + "\n";
}

std::string Variable(const std::string& handle, const std::string& value)
{
    return "0\nDICTIONARYVAR\n5\n" + handle + "\n280\n0\n1\n" + value + "\n";
}

FrameSettings FramesOf(const FrameRow& row)
{
    const std::string text = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1024\n" + row.header +
                             "0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n330\n0\n" +
                             Entry("AcDbVariableDictionary", "40") + "0\nDICTIONARY\n5\n40\n330\nC\n" + row.variables +
                             row.objects + "0\nENDSEC\n0\nEOF\n";
    return Drawing::FromBytes(text, "frames.dxf")->Frames();
}

class FramesTest : public ::testing::TestWithParam<FrameRow> {};

TEST_P(FramesTest, AreThoseThatTheDrawingAsksFor)
{
    const FrameSettings frames = FramesOf(GetParam());
    EXPECT_EQ(frames.image, GetParam().frames.image);
    EXPECT_EQ(frames.wipeout, GetParam().frames.wipeout);
    EXPECT_EQ(frames.underlay, GetParam().frames.underlay);
    EXPECT_EQ(frames.clip, GetParam().frames.clip);
}

const FrameRow kFrameRows[] = {
    {"NothingSaid", "", "", "", {1, 1, 1, 0}},
    {"EachInItsPlace",
     "9\n$XCLIPFRAME\n290\n1\n",
     Entry("PDFFRAME", "41") + Variable("41", "2"),
     "0\nRASTERVARIABLES\n5\n42\n70\n0\n0\nWIPEOUTVARIABLES\n5\n43\n70\n2\n",
     {0, 2, 2, 1}},
    {"OneForAll",
     "9\n$XCLIPFRAME\n280\n2\n",
     Entry("PDFFRAME", "41") + Entry("FRAME", "44") + Variable("41", "2") + Variable("44", "0"),
     "0\nRASTERVARIABLES\n5\n42\n70\n1\n",
     {0, 0, 0, 0}},
    {"ThreeLeavesEachItsOwn",
     "9\n$XCLIPFRAME\n280\n2\n",
     Entry("PDFFRAME", "41") + Entry("FRAME", "44") + Variable("41", "0") + Variable("44", "3"),
     "",
     {1, 1, 0, 2}},
    {"ValuesThatMeanNothing",
     "",
     Entry("PDFFRAME", "41") + Entry("FRAME", "44") + Variable("41", "yes") + Variable("44", ""),
     "",
     {1, 1, 1, 0}},
};

INSTANTIATE_TEST_SUITE_P(Rows, FramesTest, ::testing::ValuesIn(kFrameRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::drawing
