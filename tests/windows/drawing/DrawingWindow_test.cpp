// SPDX-License-Identifier: GPL-3.0-or-later
// Points picked in the real drawing window, which is seen on a display of the test's own.
#include "OpenDrawing.h"

#include <gtest/gtest.h>

#include <map>

namespace sm::win32 {
namespace {

std::string Tag(int code, const std::string& value)
{
    return std::to_string(code) + "\n" + value + "\n";
}

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

class DrawingPicked : public OpenDrawing {
protected:
    DrawingPicked() { drawing = drawing::Drawing::FromBytes(Plan(), "plan.dxf"); }
};

void ExpectNear(const Point& point, Vec2 expected)
{
    ASSERT_TRUE(point.has_value());
    EXPECT_NEAR(point->x, expected.x, 0.2);
    EXPECT_NEAR(point->y, expected.y, 0.2);
}

TEST_F(DrawingPicked, AClickPicksWhatIsUnderTheMouse)
{
    const Point point = Pick([](const DrawingUser& user) {
        EXPECT_EQ(user.Text(kPrompt), "Enter a point: ");
        EXPECT_EQ(user.Title(), "plan.dxf – Model – Tarnwick Sheetmaker PDF");
        user.Press(user.PixelOf({70, 10}));
    });
    ExpectNear(point, {70, 10});
    EXPECT_EQ(DrawingUser::Up(), nullptr) << "the window goes when nothing else is asked for";
}

struct SnappedCase {
    const char* name;
    Vec2 close, snapped;
    const char* hint;
};

TEST_F(DrawingPicked, SnappedPointsAreExact)
{
    const SnappedCase cases[] = {
        {"end", {99, 49.5}, {100, 50}, "End point"},
        {"middle", {50.4, 24.8}, {50, 25}, "Middle point"},
        {"centre", {149.5, 25.2}, {150, 25}, "Centre point"},
    };
    for (const SnappedCase& row : cases) {
        SCOPED_TRACE(row.name);
        const Point point = Pick([&](const DrawingUser& user) {
            const POINT pixel = user.PixelOf(row.close);
            user.Move(pixel);
            EXPECT_EQ(user.Text(kHint), row.hint);
            Keep(user, std::string("snap-") + row.name);
            user.Press(pixel);
        });
        ASSERT_TRUE(point.has_value());
        EXPECT_NEAR(point->x, row.snapped.x, 1e-12); // a centre comes from an arc
        EXPECT_NEAR(point->y, row.snapped.y, 1e-12);
    }
}

TEST_F(DrawingPicked, EndsAndMiddlesAreTheVeryNumbers)
{
    EXPECT_TRUE(Pick([](const DrawingUser& user) { user.Press(user.PixelOf({99, 49.5})); }) == (Vec2{100, 50}));
    EXPECT_TRUE(Pick([](const DrawingUser& user) { user.Press(user.PixelOf({50.4, 24.8})); }) == (Vec2{50, 25}));
}

TEST_F(DrawingPicked, ShiftAndTheButtonLeaveSnapsOut)
{
    ExpectNear(Pick([](const DrawingUser& user) { user.Press(user.PixelOf({1, 49}), MK_SHIFT); }), {1, 49});
    ExpectNear(Pick([](const DrawingUser& user) {
                   user.Click(kSnaps);
                   const POINT pixel = user.PixelOf({1, 49});
                   user.Move(pixel);
                   EXPECT_EQ(user.Text(kHint), "Object snaps off (F3)");
                   user.Press(pixel);
               }),
               {1, 49});
}

TEST_F(DrawingPicked, EscapeRightButtonAndClosingCancel)
{
    EXPECT_EQ(Pick([](const DrawingUser& user) { user.Key(VK_ESCAPE); }), std::nullopt);
    EXPECT_EQ(Pick([](const DrawingUser& user) { user.Send(WM_RBUTTONDOWN, {50, 50}); }), std::nullopt);
    EXPECT_EQ(Pick([](const DrawingUser& user) { PostMessageW(user.Window(), WM_CLOSE, 0, 0); }), std::nullopt);
}

TEST_F(DrawingPicked, PointsCanBeTyped)
{
    EXPECT_EQ(Pick([](const DrawingUser& user) {
                  user.Letters("12.5,");
                  user.Letters("3");
                  user.Key(VK_RETURN);
              }),
              (Vec2{12.5, 3}));
    EXPECT_EQ(Corner({1, 2},
                     [](const DrawingUser& user) {
                         user.Letters("@3,2");
                         user.Key(VK_RETURN);
                     }),
              (Vec2{4, 4}));
    EXPECT_EQ(Pick([](const DrawingUser& user) {
                  user.Letters("12");
                  user.Key(VK_RETURN);
                  EXPECT_EQ(user.Text(kHint), "Please type a point as x,y");
                  user.Key(VK_ESCAPE);
              }),
              std::nullopt);
}

TEST_F(DrawingPicked, ARectangleIsSeenWhileItsOtherCornerIsPicked)
{
    const Point first = Pick([](const DrawingUser& user) { user.Press(user.PixelOf({0.6, 0.6})); });
    EXPECT_EQ(first, (Vec2{0, 0}));
    const Point other = Corner({0, 0}, [](const DrawingUser& user) {
        EXPECT_EQ(user.Text(kPrompt), "Enter Other Corner: ");
        EXPECT_FALSE(IsWindowEnabled(user.Control(kTabs)));
        const POINT pixel = user.PixelOf({99.5, 49.5});
        user.Move(pixel);
        Keep(user, "rectangle");
        user.Press(pixel);
    });
    EXPECT_EQ(other, (Vec2{100, 50}));
}

TEST_F(DrawingPicked, TheWheelZoomsAndItsButtonPans)
{
    Pick([](const DrawingUser& user) {
        const POINT at{300, 200};
        const Vec2 before = user.PointAt(at);
        const double width = user.PointAt({400, 200}).x - before.x;
        user.Move(at);
        user.Wheel(at, 2);
        EXPECT_NEAR(user.PointAt(at).x, before.x, 0.002) << "the point under the cursor stays";
        EXPECT_NEAR(user.PointAt({400, 200}).x - before.x, width / 1.5625, 0.01);
        user.Send(WM_MBUTTONDOWN, at, MK_MBUTTON);
        user.Move({391, 262}, MK_MBUTTON);
        user.Send(WM_MBUTTONUP, {391, 262});
        EXPECT_NEAR(user.PointAt({391, 262}).x, before.x, 0.002);
        user.Click(kZoomAll);
        EXPECT_NEAR(user.PointAt(at).x, before.x, 0.002) << "everything is shown again";
        user.Click(kZoomFrame);
        const Vec2 a = user.PointAt({200, 100}), b = user.PointAt({400, 250});
        user.Press({200, 100});
        user.Move({400, 250}, MK_LBUTTON);
        user.Release({400, 250});
        user.Settle();
        RECT room = {};
        GetClientRect(user.View(), &room);
        EXPECT_NEAR(user.PointAt({room.right / 2, room.bottom / 2}).x, (a.x + b.x) / 2, 0.3);
        user.Key(VK_ESCAPE);
    });
}

TEST_F(DrawingPicked, TabsTurnTheLayoutThatIsPickedIn)
{
    OpenSample("house.dxf");
    active = 0;
    const std::size_t wanted = LayoutNamed("A-201 Section");
    const Point point = Pick([&](const DrawingUser& user) {
        user.TurnTo(static_cast<int>(wanted));
        EXPECT_EQ(user.Title(), "house.dxf – A-201 Section – Tarnwick Sheetmaker PDF");
        Keep(user, "house-section");
        user.Key('B');
        Keep(user, "house-section-dark");
        user.Press(user.PixelOf({100, 80}), MK_SHIFT);
    });
    EXPECT_EQ(active, wanted);
    ASSERT_TRUE(point.has_value());
    EXPECT_NEAR(point->x, 100, 1); // a pixel is as large
    EXPECT_NEAR(point->y, 80, 1);
}

class KeptMemory final : public beside::IWindowMemory {
public:
    std::map<std::string, std::string> texts;
    std::string Recall(const std::string& name) override { return texts[name]; }
    void Remember(const std::string& name, const std::string& text) override { texts[name] = text; }
};

TEST_F(DrawingPicked, SizeAndBackgroundComeBack)
{
    KeptMemory memory;
    memory.texts = {{"Size Drawing", "800x600"}, {"DrawingBackground", "dark"}};
    options.memory = &memory;
    picker = CreateDrawingWindow(options);
    Pick([](const DrawingUser& user) {
        RECT place = {};
        GetWindowRect(user.Window(), &place);
        EXPECT_EQ(place.right - place.left, 800);
        EXPECT_EQ(place.bottom - place.top, 600);
        EXPECT_EQ(SendMessageW(user.Control(kDark), BM_GETCHECK, 0, 0), BST_CHECKED);
        user.Click(kDark);
        SetWindowPos(user.Window(), nullptr, 0, 0, 900, 650, SWP_NOMOVE | SWP_NOZORDER);
        user.Key(VK_ESCAPE);
    });
    EXPECT_EQ(memory.texts,
              (std::map<std::string, std::string>{{"DrawingBackground", "light"}, {"Size Drawing", "900x650"}}));
}

} // namespace
} // namespace sm::win32
