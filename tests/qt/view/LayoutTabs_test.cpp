// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing's layouts as tabs of the drawing window.
#include "qt/WindowFixture.h"

#include <QTabBar>
#include <QTest>

namespace sm::qt {
namespace {
using ::testing::ElementsAre;

class LayoutTabs : public DrawingWindowTest {
protected:
    LayoutTabs() { Open(std::string(SM_SOURCE_DIR) + "/samples/house.dxf"); }
    static QTabBar& Tabs() { return *Window().findChild<QTabBar*>("layouts"); }
    static std::string Current() { return Tabs().tabText(Tabs().currentIndex()).toStdString(); }
};

TEST_F(LayoutTabs, StandInTabOrderWithTheActiveOneInFront)
{
    PickPoint(1, [&] {
        std::vector<std::string> names;
        for (int i = 0; i < Tabs().count(); ++i)
            names.push_back(Tabs().tabText(i).toStdString());
        EXPECT_THAT(names, ElementsAre("Model", "A-101 Ground Floor", "A-102 Upper Floor", "A-201 Section"));
        EXPECT_EQ(Current(), "A-101 Ground Floor");
        EXPECT_EQ(Tabs().accessibleName(), "Layouts");
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(active, 1U);
}

TEST_F(LayoutTabs, ThePointIsOneOfTheLayoutThatWasTurnedTo)
{
    const Point point = PickPoint(1, [&] {
        Tabs().setCurrentIndex(0);
        Settle();
        EXPECT_TRUE(Window().windowTitle().startsWith("house.dxf – Model – "));
        Shoot("layout-tabs");
        Press(PixelOf({3000, 2000}), Qt::LeftButton, Qt::ShiftModifier);
    });
    ASSERT_TRUE(point.has_value());
    EXPECT_NEAR(point->x, 3000, 20);
    EXPECT_NEAR(point->y, 2000, 20);
    EXPECT_EQ(active, 0U);
}

TEST_F(LayoutTabs, KeysTurnThemAndTheLastOneStaysActiveWhenThePickIsGivenUp)
{
    const Point point = PickPoint(0, [&] {
        QTest::keyClick(&View(), Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(Current(), "Model") << "there is none before it";
        QTest::keyClick(&View(), Qt::Key_PageDown, Qt::ControlModifier);
        QTest::keyClick(&View(), Qt::Key_PageDown, Qt::ControlModifier); // while the first one is read
        Settle();
        EXPECT_EQ(Current(), "A-102 Upper Floor");
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(point, std::nullopt);
    EXPECT_EQ(active, 2U);
}

TEST_F(LayoutTabs, EachKeepsTheViewThatWasLeft)
{
    PickPoint(1, [&] {
        Wheel({300, 300}, 4);
        Settle();
        const Vec2 before = PointAt({200, 100});
        Tabs().setCurrentIndex(2);
        Settle();
        Tabs().setCurrentIndex(1);
        Settle();
        EXPECT_NEAR(PointAt({200, 100}).x, before.x, 0.01);
        EXPECT_NEAR(PointAt({200, 100}).y, before.y, 0.01);
        Key(Qt::Key_Escape);
    });
}

TEST_F(LayoutTabs, StandStillBetweenTwoCorners)
{
    PickCorner(1, {10, 10}, [&] {
        EXPECT_FALSE(Tabs().isEnabled());
        QTest::keyClick(&View(), Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(Current(), "A-101 Ground Floor");
        Key(Qt::Key_Escape);
    });
    PickPoint(1, [&] {
        EXPECT_TRUE(Tabs().isEnabled());
        Key(Qt::Key_Escape);
    });
}

} // namespace
} // namespace sm::qt
