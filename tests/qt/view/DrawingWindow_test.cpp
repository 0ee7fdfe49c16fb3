// SPDX-License-Identifier: GPL-3.0-or-later
// Picking with mouse and keyboard in the real window.
#include "drawing/Drawing.h"
#include "qt/WindowFixture.h"
#include "scene/Pieces.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <csignal>

namespace sm::qt {
namespace {
using scene::Tag;

/// Lines from (0, 0) to (100, 50) and (0, 50) to (100, 0), and a circle of radius 20 about (150, 25).
std::string Plan()
{
    const auto line = [](const char* x1, const char* y1, const char* x2, const char* y2) {
        return Tag(0, "LINE") + Tag(8, "0") + Tag(10, x1) + Tag(20, y1) + Tag(11, x2) + Tag(21, y2);
    };
    return Tag(0, "SECTION") + Tag(2, "HEADER") + Tag(9, "$LUPREC") + Tag(70, "3") + Tag(0, "ENDSEC") +
           Tag(0, "SECTION") + Tag(2, "ENTITIES") + line("0", "0", "100", "50") + line("0", "50", "100", "0") +
           Tag(0, "CIRCLE") + Tag(8, "0") + Tag(10, "150") + Tag(20, "25") + Tag(40, "20") + Tag(0, "ENDSEC") +
           Tag(0, "EOF");
}

void ExpectNear(const Point& point, Vec2 expected, double tolerance)
{
    ASSERT_TRUE(point.has_value());
    EXPECT_NEAR(point->x, expected.x, tolerance);
    EXPECT_NEAR(point->y, expected.y, tolerance);
}

class DrawingWindowPicks : public DrawingWindowTest {
protected:
    DrawingWindowPicks() { OpenText(Plan()); }
};

TEST_F(DrawingWindowPicks, AClickPicksWhatIsUnderTheMouse)
{
    const Point point = PickPoint(0, [&] {
        EXPECT_EQ(TextOf("prompt"), "Enter a point: ");
        Press(PixelOf({70, 10}));
    });
    ExpectNear(point, {70, 10}, 0.01);
    QCoreApplication::processEvents();
    EXPECT_THROW(Window(), std::runtime_error) << "the window goes when nothing else is asked for";
}

struct SnapCase {
    const char* name;
    Vec2 near, snapped;
    const char* hint;
    const char* file;
};

TEST_F(DrawingWindowPicks, SnapsDrawTheCursor)
{
    const SnapCase cases[] = {
        {"an end", {1, 49}, {0, 50}, "End point", "end"},
        {"a crossing of the middles", {50.5, 25.5}, {50, 25}, "Middle point", "middle"},
        {"a centre", {149, 25.5}, {150, 25}, "Centre point", "centre"},
        {"a circle", {170.3, 25}, {150, 25}, "Centre point", "rim"},
        {"nothing", {70, 10}, {70, 10}, "Object snaps on (F3)", "none"},
    };
    for (const SnapCase& row : cases) {
        const Point point = PickPoint(0, [&] {
            const QPointF pixel = PixelOf(row.near);
            Move(pixel);
            EXPECT_EQ(TextOf("hint"), row.hint) << row.name;
            Shoot(std::string("snap-") + row.file);
            Press(pixel);
        });
        ExpectNear(point, row.snapped, 0.01);
    }
}

TEST_F(DrawingWindowPicks, SnappedPointsAreExact)
{
    EXPECT_EQ(PickPoint(0, [&] { Press(PixelOf({99, 49.5})); }), (Vec2{100, 50}));
    EXPECT_EQ(PickPoint(0, [&] { Press(PixelOf({50.4, 24.8})); }), (Vec2{50, 25}));
}

TEST_F(DrawingWindowPicks, ShiftAndF3LeaveSnapsOut)
{
    ExpectNear(PickPoint(0, [&] { Press(PixelOf({1, 49}), Qt::LeftButton, Qt::ShiftModifier); }), {1, 49}, 0.01);
    const Point point = PickPoint(0, [&] {
        QTest::keyClick(&View(), Qt::Key_F3);
        Move(PixelOf({1, 49}));
        EXPECT_EQ(TextOf("hint"), "Object snaps off (F3)");
        Press(PixelOf({1, 49}));
    });
    ExpectNear(point, {1, 49}, 0.01);
}

TEST_F(DrawingWindowPicks, CoordinatesFollowTheMouse)
{
    PickPoint(0, [&] {
        Move(PixelOf({0.4, 0.3}));
        EXPECT_EQ(TextOf("place"), "0.000, 0.000") << "as many decimals as the drawing asks for";
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, EscapeAndClosingCancel)
{
    EXPECT_EQ(PickPoint(0, [&] { Key(Qt::Key_Escape); }), std::nullopt);
    EXPECT_EQ(PickCorner(0, {1, 1}, [&] { Window().close(); }), std::nullopt);
    EXPECT_EQ(PickPoint(0,
                        [&] {
                            Type("12,");
                            Key(Qt::Key_Escape);
                        }),
              std::nullopt);
}

TEST_F(DrawingWindowPicks, ASignalToEndCancels)
{
    EXPECT_EQ(PickPoint(0, [] { raise(SIGINT); }), std::nullopt);
    EXPECT_EQ(PickCorner(0, {1, 1}, [] { raise(SIGTERM); }), std::nullopt);
}

TEST_F(DrawingWindowPicks, EscapeWhileTheDrawingIsReadCancels)
{
    QTimer::singleShot(0, qApp, [] { Key(Qt::Key_Escape); });
    EXPECT_EQ(picker->PickPoint(*drawing, active, "Enter a point: "), std::nullopt);
    ExpectNear(PickPoint(0, [&] { Press(PixelOf({70, 10})); }), {70, 10}, 0.01);
}

struct TypedCase {
    const char* typed;
    Vec2 point;
};

TEST_F(DrawingWindowPicks, PointsAreTyped)
{
    for (const TypedCase& row :
         {TypedCase{"12.5,3", {12.5, 3}}, TypedCase{".5,-2", {0.5, -2}}, TypedCase{"-7,1e2", {-7, 100}}}) {
        const Point point = PickPoint(0, [&] {
            Type(row.typed);
            Key(Qt::Key_Return);
        });
        EXPECT_EQ(point, row.point) << row.typed;
    }
}

TEST_F(DrawingWindowPicks, WhatIsNoPointIsAskedForAgain)
{
    const Point point = PickPoint(0, [&] {
        Type("12;3");
        Key(Qt::Key_Return);
        EXPECT_EQ(TextOf("hint"), "Please type a point as x,y");
        Type("4,5");
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(point, (Vec2{4, 5})) << "what was typed wrong is replaced";
}

TEST_F(DrawingWindowPicks, ARectangleIsPickedInOneWindow)
{
    QWidget* window = nullptr;
    Vec2 corner;
    const Point first = PickPoint(0, [&] {
        window = &Window();
        Wheel({300, 300}, 3);
        Settle();
        corner = PointAt({200, 200});
        Press({200, 200}, Qt::LeftButton, Qt::ShiftModifier);
        Release({200, 200});
    });
    ASSERT_TRUE(first.has_value());
    const Point other = PickCorner(0, *first, [&] {
        EXPECT_EQ(&Window(), window) << "it stays up between the corners";
        EXPECT_EQ(TextOf("prompt"), "Enter Other Corner: ");
        const Vec2 still = PointAt({200, 200});
        EXPECT_NEAR(still.x, corner.x, 0.002) << "and shows the same";
        EXPECT_NEAR(still.y, corner.y, 0.002);
        Move({420, 380}, Qt::ShiftModifier);
        Shoot("rubber-band");
        Press({420, 380}, Qt::LeftButton, Qt::ShiftModifier);
    });
    ASSERT_TRUE(other.has_value());
    EXPECT_GT(other->x, first->x);
    EXPECT_LT(other->y, first->y);
}

TEST_F(DrawingWindowPicks, TheOtherCornerMayBeTypedFromTheFirst)
{
    const Point other = PickCorner(0, {10, 20}, [&] {
        Type("@5,-8");
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(other, (Vec2{15, 12}));
}

TEST_F(DrawingWindowPicks, ARubberBandFollowsFromTheFirstCorner)
{
    PickCorner(0, {10, 20}, [&] {
        const QPointF first = PixelOf({10, 20});
        const QPointF middle = (first + PixelOf({60, 44})) / 2;
        const auto look = [&] {
            const QImage image = View().grab().toImage();
            return image.pixel((middle * image.devicePixelRatio()).toPoint());
        };
        Move({5, 5}, Qt::ShiftModifier);
        const QRgb plain = look();
        Move(PixelOf({60, 44}), Qt::ShiftModifier);
        const QRgb inside = look();
        EXPECT_NE(plain, inside);
        EXPECT_GT(qBlue(inside), qRed(inside)) << "it is tinted blue";
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, ADoubleClickIsNoRectangle)
{
    const Point other = PickCorner(0, {10, 20}, [&] {
        QMouseEvent twice(QEvent::MouseButtonDblClick, {300, 300}, View().mapToGlobal(QPointF(300, 300)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&View(), &twice);
        Type("4,5");
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(other, (Vec2{4, 5}));
}

TEST_F(DrawingWindowPicks, TheNextPickGoesOnWhereTheLastOneLeft)
{
    Vec2 before;
    PickPoint(0, [&] {
        Wheel({300, 300}, 4);
        before = PointAt({200, 100});
        Key(Qt::Key_Escape);
    });
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    PickPoint(0, [&] {
        EXPECT_NEAR(PointAt({200, 100}).x, before.x, 0.002);
        EXPECT_NEAR(PointAt({200, 100}).y, before.y, 0.002);
        Key(Qt::Key_Escape);
    });
    PickPoint(1, [] { Key(Qt::Key_Escape); });
    PickPoint(0, [&] {
        EXPECT_NEAR(PointAt({200, 100}).x, before.x, 0.002) << "though another layout was shown meanwhile";
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, ADragPicksTheOtherCornerWhereItEnds)
{
    const Point first = PickPoint(0, [&] { Press({200, 200}, Qt::LeftButton, Qt::ShiftModifier); });
    const Point other = PickCorner(0, *first, [&] {
        Move({300, 320}, Qt::ShiftModifier);
        Release({300, 320});
    });
    ASSERT_TRUE(other.has_value());
    EXPECT_GT(other->x, first->x);
}

TEST_F(DrawingWindowPicks, TheWheelKeepsThePointUnderTheMouse)
{
    PickPoint(0, [&] {
        const QPointF at(611, 237);
        const Vec2 before = PointAt(at);
        for (const int notches : {4, 3, -2, -9}) {
            Wheel(at, notches);
            Settle();
            const Vec2 after = PointAt(at);
            EXPECT_NEAR(after.x, before.x, 0.002) << notches;
            EXPECT_NEAR(after.y, before.y, 0.002) << notches;
        }
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, DraggingWithTheMiddleButtonTakesThePointAlong)
{
    PickPoint(0, [&] {
        const Vec2 before = PointAt({300, 200});
        Press({300, 200}, Qt::MiddleButton);
        Move({340, 215});
        Move({391, 262});
        Release({391, 262}, Qt::MiddleButton);
        Settle();
        const Vec2 after = PointAt({391, 262});
        EXPECT_NEAR(after.x, before.x, 0.002);
        EXPECT_NEAR(after.y, before.y, 0.002);
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, KeysPanZoomAndShowAll)
{
    PickPoint(0, [&] {
        const double width = View().width();
        const Vec2 left = PointAt({0, 100});
        const Vec2 right = PointAt({width, 100});
        const double whole = right.x - left.x;
        Key(Qt::Key_Plus, "+");
        EXPECT_NEAR(PointAt({width, 100}).x - PointAt({0, 100}).x, whole / 1.5, 0.01);
        Key(Qt::Key_Minus, "-");
        EXPECT_NEAR(PointAt({width, 100}).x - PointAt({0, 100}).x, whole, 0.01);
        Key(Qt::Key_Right);
        EXPECT_NEAR(PointAt({0, 100}).x, left.x + whole * 0.1, whole * 0.002);
        Key(Qt::Key_Up);
        EXPECT_GT(PointAt({0, 100}).y, left.y);
        Key(Qt::Key_Home);
        EXPECT_NEAR(PointAt({0, 100}).x, left.x, 0.002);
        EXPECT_NEAR(PointAt({0, 100}).y, left.y, 0.002);
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, ADoubleClickWithTheMiddleButtonShowsAll)
{
    PickPoint(0, [&] {
        const Vec2 before = PointAt({100, 100});
        Wheel({600, 500}, 5);
        EXPECT_GT(std::abs(PointAt({100, 100}).x - before.x), 1);
        QMouseEvent twice(QEvent::MouseButtonDblClick, {300, 300}, View().mapToGlobal(QPointF(300, 300)),
                          Qt::MiddleButton, Qt::MiddleButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&View(), &twice);
        EXPECT_NEAR(PointAt({100, 100}).x, before.x, 0.002);
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, AMovedViewIsPaintedAsIfItWereNew)
{
    PickPoint(0, [&] {
        Wheel({300, 300}, 2);
        Move({2, 2}, Qt::ShiftModifier);
        Key(Qt::Key_Right);
        Key(Qt::Key_Down);
        Settle();
        const QImage moved = View().grab().toImage();
        const QSize size = Window().size();
        Window().resize(size + QSize(0, 2)); // another size is painted whole
        Settle();
        Window().resize(size);
        Settle();
        const QImage whole = View().grab().toImage();
        int different = 0;
        for (int y = 0; y < whole.height(); ++y) {
            for (int x = 0; x < whole.width(); ++x) {
                const QRgb a = moved.pixel(x, y);
                const QRgb b = whole.pixel(x, y);
                different += std::abs(qGray(a) - qGray(b)) > 100 ? 1 : 0;
            }
        }
        EXPECT_LT(different, 20);
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, PartsHaveNamesForScreenReaders)
{
    PickPoint(0, [&] {
        EXPECT_EQ(View().accessibleName(), "Drawing");
        EXPECT_EQ(Window().findChild<QLineEdit*>("entry")->accessibleName(), "Enter a point: ");
        EXPECT_EQ(Window().findChild<QWidget*>("place")->accessibleName(), "Coordinates");
        Move(PixelOf({70, 10}), Qt::ShiftModifier);
        EXPECT_EQ(Window().findChild<QWidget*>("place")->accessibleName(), "Coordinates " + TextOf("place"));
        Move(PixelOf({1, 49}));
        EXPECT_EQ(Window().findChild<QWidget*>("hint")->accessibleName(), "End point");
        EXPECT_EQ(Window().windowModality(), Qt::ApplicationModal);
        Key(Qt::Key_Escape);
    });
}

TEST_F(DrawingWindowPicks, AForgottenDrawingIsReadAgain)
{
    ExpectNear(PickPoint(0, [&] { Press(PixelOf({70, 10})); }), {70, 10}, 0.01);
    picker->Forget(*drawing);
    drawing.reset();
    Open(std::string(SM_SOURCE_DIR) + "/samples/flange.dxf");
    EXPECT_EQ(PickPoint(1,
                        [&] {
                            Type("1,2");
                            Key(Qt::Key_Return);
                        }),
              (Vec2{1, 2}));
}

TEST(DrawingWindow, WithoutAScreenPickingFails)
{
    if (QCoreApplication::instance() != nullptr)
        GTEST_SKIP() << "another test has opened a screen";
    const auto picker = CreateDrawingWindow({{}, SM_SOURCE_DIR "/share/sheetmaker-pdf"});
    std::size_t layout = 0;
    const auto drawing = drawing::Drawing::FromBytes(Plan(), "plan.dxf");
    EXPECT_THROW(picker->PickPoint(*drawing, layout, "Enter a point: "), std::runtime_error);
}

} // namespace
} // namespace sm::qt
