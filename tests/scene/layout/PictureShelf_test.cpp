// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that are kept for when their layouts are shown again.
#include "drawing/Drawing.h"
#include "scene/PictureShelf.h"

#include <gtest/gtest.h>

namespace sm::scene {
namespace {

std::shared_ptr<const LayoutPicture> PictureOf(std::size_t bytes)
{
    auto picture = std::make_shared<LayoutPicture>();
    picture->list.points.resize(bytes / sizeof(Spot));
    picture->list.points.shrink_to_fit();
    return picture;
}

TEST(PictureShelf, KeepsTheLastTwoAndWhatElseFits)
{
    const auto drawing = drawing::Drawing::Open(std::string(SM_SOURCE_DIR) + "/samples/house.dxf");
    PictureShelf shelf;
    shelf.DrawingIs(*drawing);
    EXPECT_EQ(shelf.Find(0), nullptr);
    const std::size_t large = PictureShelf::kMostBytes * 2 / 3;
    for (const std::size_t layout : {0, 1, 2})
        shelf.Keep(layout, PictureOf(1000));
    EXPECT_NE(shelf.Find(0), nullptr) << "small ones are all kept";
    shelf.Keep(3, PictureOf(large));
    shelf.Keep(4, PictureOf(large));
    EXPECT_EQ(shelf.Find(0), nullptr);
    EXPECT_NE(shelf.Find(3), nullptr);
    EXPECT_NE(shelf.Find(4), nullptr);
    EXPECT_TRUE(shelf.Holds(*drawing));
    const auto other = drawing::Drawing::Open(std::string(SM_SOURCE_DIR) + "/samples/flange.dxf");
    shelf.DrawingIs(*other);
    EXPECT_EQ(shelf.Find(4), nullptr);
    EXPECT_FALSE(shelf.Holds(*drawing));
}

} // namespace
} // namespace sm::scene
