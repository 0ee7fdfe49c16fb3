// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/entities/Texts.h"

#include <gtest/gtest.h>

namespace sm::drawing::testing {
namespace {

struct RemoteTextRow {
    const char* name;
    const char* tags;
    Vec3 insertion;
    double rotation;
    bool isElsewhere;
};

TEST(RemoteTexts, StandInTheirPlaneOrElsewhere)
{
    const RemoteTextRow rows[] = {
        {"Expression", "10\n1\n20\n2\n30\n3\n50\n1.5707963267948966\n40\n5\n70\n1\n1\nPlain", {1, 2, 3}, 90, false},
        {"ToBeComputed", "10\n1\n20\n2\n40\n5\n70\n1\n1\n$(getvar,dwgname)", {1, 2, 0}, 0, true},
        {"OfAFile", "10\n1\n20\n2\n40\n5\n70\n0\n1\nnotes.txt", {1, 2, 0}, 0, true},
        {"SeenFromBelow", "10\n1\n20\n2\n30\n3\n210\n0\n220\n0\n230\n-1\n70\n1\n1\nx", {-1, 2, -3}, 0, false},
        {"OnAWall", "10\n1\n20\n2\n30\n3\n210\n1\n220\n0\n230\n0\n70\n1\n1\nx", {2, 3, 1}, 0, false},
    };
    for (const RemoteTextRow& row : rows) {
        const auto drawing = OpenEntities("0\nRTEXT\n8\n0\n100\nRText\n" + std::string(row.tags) + "\n");
        ASSERT_EQ(ModelEntities(*drawing).size(), 1U) << row.name;
        TextData text;
        Read(*drawing, ModelEntities(*drawing)[0], text);
        EXPECT_EQ(text.insertion, row.insertion) << row.name;
        EXPECT_DOUBLE_EQ(text.rotation, row.rotation) << row.name;
        EXPECT_EQ(text.isElsewhere, row.isElsewhere) << row.name;
        EXPECT_EQ(text.attributeFlags, 0) << row.name;
    }
}

TEST(ArcTexts, HaveAllThatTheirGroupsSay)
{
    const auto drawing =
        OpenEntities("0\nARCALIGNEDTEXT\n8\n0\n100\nAcDbArcAlignedText\n1\nRound\n2\nArial\n10\n1\n20\n2\n"
                     "30\n3\n40\n10\n41\n0.9\n42\n2.5\n43\n0.1\n44\n0.2\n45\n0.3\n46\n0.4\n50\n30\n51\n"
                     "150\n70\n1\n71\n2\n72\n3\n73\n2\n74\n1\n75\n1\n76\n1\n90\n256\n280\n1\n330\n1F\n");
    ASSERT_EQ(ModelEntities(*drawing).size(), 1U);
    ArcTextData text;
    Read(*drawing, ModelEntities(*drawing)[0], text);
    EXPECT_EQ(text.text, "Round");
    EXPECT_EQ(text.insertion, (Vec3{1, 2, 3}));
    const std::vector<double> numbers{text.radius,      text.widthFactor, text.height,     text.spacing, text.offset,
                                      text.rightOffset, text.leftOffset,  text.startAngle, text.endAngle};
    EXPECT_EQ(numbers, (std::vector<double>{10, 0.9, 2.5, 0.1, 0.2, 0.3, 0.4, 30, 150}));
    EXPECT_EQ(text.placing, 3);
    EXPECT_TRUE(text.isInward && text.isInside && text.isReversed && text.isUnderlined);
}

} // namespace
} // namespace sm::drawing::testing
