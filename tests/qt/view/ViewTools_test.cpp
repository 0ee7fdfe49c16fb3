// SPDX-License-Identifier: GPL-3.0-or-later
// Dark and light, the frame to zoom to, the keys, and what of that is remembered.
#include "qt/MapMemory.h"
#include "qt/WindowFixture.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QImage>

namespace sm::qt {
namespace {

class ViewToolsTest : public DrawingWindowTest {
protected:
    ViewToolsTest()
    {
        picker = CreateDrawingWindow({{}, SM_SOURCE_DIR "/share/sheetmaker-pdf", {}, &memory});
        Open(std::string(SM_SOURCE_DIR) + "/samples/house.dxf");
    }
    static QAction& Action(const char* name) { return *Window().findChild<QAction*>(name); }
    /// The window has gone, and the next pick makes another one.
    static void Gone()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QRgb Corner() { return View().grab().toImage().pixel(2, 2); }
    MapMemory memory;
};

TEST_F(ViewToolsTest, TheBackgroundIsRemembered)
{
    PickPoint(0, [&] {
        EXPECT_EQ(Corner(), qRgb(0xFF, 0xFF, 0xFF));
        Action("dark").trigger();
        Settle();
        EXPECT_EQ(Corner(), qRgb(0x21, 0x21, 0x21));
        Shoot("drawing-dark-model");
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(memory.texts["DrawingBackground"], "dark");
    Gone();
    PickPoint(1, [&] {
        EXPECT_TRUE(Action("dark").isChecked());
        Action("keysShown").trigger();
        Shoot("drawing-dark-sheet");
        EXPECT_TRUE(View().findChild<QWidget*>("keys")->isVisible());
        EXPECT_GT(Window().findChild<QWidget*>("layouts")->height(), 10)
            << "a size that comes back leaves all its room";
        Action("dark").trigger();
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(memory.texts["DrawingBackground"], "light");
}

TEST_F(ViewToolsTest, AFrameIsZoomedToAndPicksNothing)
{
    const auto point = PickPoint(0, [&] {
        const Vec2 a = PointAt({300, 200}), b = PointAt({500, 340});
        Key(Qt::Key_W, "w");
        EXPECT_TRUE(Action("zoomWindow").isChecked());
        Press({300, 200});
        Release({300, 200});
        Move({400, 260});
        Shoot("zoom-window");
        Press({500, 340});
        Release({500, 340});
        EXPECT_FALSE(Action("zoomWindow").isChecked());
        Settle();
        const Vec2 middle = PointAt({View().width() / 2.0, View().height() / 2.0});
        EXPECT_NEAR(middle.x, (a.x + b.x) / 2, std::abs(a.x - b.x) / 50);
        EXPECT_NEAR(middle.y, (a.y + b.y) / 2, std::abs(a.y - b.y) / 50);
        const Vec2 left = PointAt({0, 10}), right = PointAt({View().width() - 1.0, 10});
        EXPECT_LT(right.x - left.x, 1.6 * (b.x - a.x)) << "the frame fills the view in one direction";
        Key(Qt::Key_Escape);
    });
    EXPECT_FALSE(point);
}

TEST_F(ViewToolsTest, AFrameInOneGoAndOneThatIsGivenUp)
{
    PickPoint(0, [&] {
        const Vec2 before = PointAt({10, 10});
        for (const auto& giveUp : {std::function<void()>([] { Key(Qt::Key_Escape); }), std::function<void()>([] {
                                       Press({310, 210}, Qt::RightButton);
                                   })}) {
            Action("zoomWindow").trigger();
            Press({300, 200});
            giveUp();
            EXPECT_FALSE(Action("zoomWindow").isChecked());
            EXPECT_TRUE(Window().isVisible()) << "the pick goes on";
        }
        EXPECT_EQ(PointAt({10, 10}).x, before.x);
        Action("zoomWindow").trigger();
        Press({300, 200});
        Release({300, 200});
        Press({301, 201});
        EXPECT_TRUE(Action("zoomWindow").isChecked()) << "no frame yet";
        Release({420, 300});
        Settle();
        EXPECT_NE(PointAt({10, 10}).x, before.x);
        Key(Qt::Key_Escape);
    });
}

TEST_F(ViewToolsTest, TheSizeIsRememberedFromRunToRun)
{
    PickPoint(0, [&] {
        Window().resize(640, 500);
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(memory.texts["Size Drawing"], "640x500");
    Gone();
    picker = CreateDrawingWindow({{}, SM_SOURCE_DIR "/share/sheetmaker-pdf", {}, &memory});
    PickPoint(0, [&] {
        EXPECT_EQ(Window().size(), QSize(640, 500));
        Key(Qt::Key_Escape);
    });
}

} // namespace
} // namespace sm::qt
