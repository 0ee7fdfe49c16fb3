// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/entities/TaggedPoints.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

/// "code: x y z" of each point of the only entity.
std::vector<std::string> PointsOf(const std::string& groups)
{
    const auto drawing = OpenEntities(groups);
    std::vector<TaggedPoint> points{{18, {7, 7, 7}}};
    ReadPoints(*drawing, ModelEntities(*drawing).front(), points);
    std::vector<std::string> texts;
    for (const auto& [code, point] : points)
        texts.push_back(std::to_string(code) + ": " + std::to_string(static_cast<int>(point.x)) + " " +
                        std::to_string(static_cast<int>(point.y)) + " " + std::to_string(static_cast<int>(point.z)));
    return texts;
}

using Texts = std::vector<std::string>;

TEST(Points, AreReadInFileOrder)
{
    EXPECT_EQ(PointsOf("0\nMESH\n8\n0\n10\n1\n20\n2\n30\n3\n10\n4\n20\n5\n30\n6\n"), (Texts{"10: 1 2 3", "10: 4 5 6"}));
    EXPECT_EQ(PointsOf("0\nWIDGET\n10\n1\n11\n5\n20\n2\n21\n6\n18\n8\n28\n9\n38\n10\n"),
              (Texts{"10: 1 2 0", "11: 5 6 0", "18: 8 9 10"}));
}

TEST(Points, LeaveOutWhatIsNone)
{
    EXPECT_EQ(PointsOf("0\nWIDGET\n20\n2\n19\n1\n29\n1\n39\n1\n40\n4\n9\n1\n"), Texts{});
    EXPECT_EQ(PointsOf("0\nWIDGET\n102\n{ACAD\n10\n9\n102\n}\n1001\nACAD\n1010\n1\n1020\n2\n1030\n3\n"), Texts{});
}

TEST(Tables, AreAsLargeAsTheirRowsAndColumns)
{
    const auto drawing = OpenEntities("0\nACAD_TABLE\n141\n2\n141\n3\n142\n10\n142\n20\n142\n5\n");
    EXPECT_EQ(ReadTableSize(*drawing, ModelEntities(*drawing).front()), (Vec2{35, 5}));
}

} // namespace
} // namespace sm::drawing::testing
