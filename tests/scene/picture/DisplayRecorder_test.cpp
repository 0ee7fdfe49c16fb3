// SPDX-License-Identifier: GPL-3.0-or-later
// What the canvas of the screen keeps.
#include "render/FontFace.h"
#include "render/Picture.h"
#include "scene/DisplayRecorder.h"
#include "scene/Pieces.h"

#include <gmock/gmock.h>

namespace sm::scene {
namespace {

/// Writes an item's shape in millimetres from `from`.
void AppendShape(const DisplayList& list, const Item& item, Vec2 from, Path& out)
{
    const Vec2 shift = item.origin - from;
    const auto points = list.PointsOf(item);
    std::size_t next = 0;
    const auto take = [&] {
        const Spot spot = points[next++];
        return Vec2{shift.x + static_cast<double>(spot.x), shift.y + static_cast<double>(spot.y)};
    };
    for (const render::Verb verb : list.VerbsOf(item)) {
        out.verbs.push_back(verb);
        if (verb == render::Verb::Close)
            continue;
        for (int i = verb == render::Verb::Cubic ? 3 : 1; i > 0; --i)
            out.points.push_back(take());
    }
}

using render::FillRule;
using render::Verb;
using ::testing::ElementsAre;

Path BoxPath(Box2 box)
{
    Path path;
    path.MoveTo(box.min);
    path.LineTo({box.max.x, box.min.y});
    path.LineTo(box.max);
    path.LineTo({box.min.x, box.max.y});
    path.Close();
    return path;
}

Path Triangle()
{
    Path path;
    path.MoveTo({0, 0});
    path.LineTo({40, 0});
    path.LineTo({0, 30});
    path.Close();
    return path;
}

Path ShapeOf(const DisplayList& list, std::size_t item)
{
    Path path;
    AppendShape(list, list.items.at(item), {}, path);
    return path;
}

/// Letters of one em: a square with its lower left corner at the origin.
class SquareFont final : public render::FontFace {
public:
    [[nodiscard]] const std::string& Name() const override { return m_name; }
    [[nodiscard]] std::uint16_t UnitsPerEm() const override { return 1; }
    [[nodiscard]] std::uint16_t Advance(std::uint32_t) const override { return 1; }
    const render::GlyphContours& Contours(std::uint32_t) const override
    {
        static const render::GlyphContours kNone;
        return kNone;
    }
    void Outline(std::uint32_t glyph, Path& out) const override
    {
        ++asked;
        out.Clear();
        if (glyph != 0)
            out = BoxPath({{0, 0}, {1, 1}});
    }
    mutable int asked = 0;

private:
    std::string m_name = "Squares";
};

TEST(DisplayRecorder, StrokesAndFillsComeBackAsDrawn)
{
    DisplayRecorder recorder;
    recorder.Stroke(LineOf({1000000.25, 5}, {1000010.5, 9}), {0x00FF0000, 0.5, render::LineCap::Butt});
    recorder.Fill(Triangle(), 0x800000FF, FillRule::EvenOdd);
    const DisplayList list = recorder.TakeList();
    ASSERT_EQ(list.items.size(), 2U);
    EXPECT_EQ(ShapeOf(list, 0), LineOf({1000000.25, 5}, {1000010.5, 9}));
    EXPECT_EQ(list.items[0].color, 0x00FF0000U);
    EXPECT_EQ(list.items[0].width, 0.5F);
    EXPECT_EQ(list.items[0].cap, render::LineCap::Butt);
    EXPECT_EQ(ShapeOf(list, 1), Triangle());
    EXPECT_EQ(list.items[1].kind, ItemKind::Fill);
    EXPECT_EQ(list.items[1].rule, FillRule::EvenOdd);
    EXPECT_EQ(list.Extents(), (Box2{{0, 0}, {1000010.5, 30}}));
    EXPECT_TRUE(recorder.TakeList().items.empty());
}

TEST(DisplayRecorder, ALongStrokeIsCutBetweenItsParts)
{
    Path path;
    for (int i = 0; i < 1000; ++i) {
        path.MoveTo({i * 1.0, 0});
        path.LineTo({i * 1.0, 5});
    }
    DisplayRecorder recorder;
    recorder.Stroke(path, {});
    const DisplayList list = recorder.TakeList();
    EXPECT_EQ(list.items.size(), 4U);
    Path all;
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        EXPECT_LE(list.items[i].Box().Width(), 260);
        AppendShape(list, list.items[i], {}, all);
    }
    EXPECT_EQ(all, path);
}

TEST(DisplayRecorder, ClipsAreNestedAndKnowWhatShows)
{
    DisplayRecorder recorder;
    recorder.PushClip(BoxPath({{0, 0}, {10, 10}}), FillRule::NonZero);
    recorder.PushClip(Triangle(), FillRule::NonZero);
    recorder.Stroke(LineOf({0, 0}, {100, 0}), {});
    recorder.PopClip();
    recorder.Stroke(LineOf({0, 0}, {100, 5}), {});
    recorder.PopClip();
    recorder.Stroke(LineOf({0, 0}, {50, 5}), {});
    const DisplayList list = recorder.TakeList();
    ASSERT_EQ(list.clips.size(), 3U) << "the first stands for none";
    EXPECT_TRUE(list.clips[1].rectangular);
    EXPECT_FALSE(list.clips[2].rectangular);
    EXPECT_EQ(list.clips[2].parent, 1U);
    EXPECT_EQ(list.clips[2].box, (Box2{{0, 0}, {10, 10}}));
    EXPECT_EQ(list.items[0].clip, 2U);
    EXPECT_EQ(list.items[1].clip, 1U);
    EXPECT_EQ(list.items[2].clip, 0U);
    EXPECT_EQ(list.Extents().max.x, 50) << "what a clip hides doesn't count";
}

TEST(DisplayRecorder, ABoxThatIsTurnedIsNoRectangle)
{
    DisplayRecorder recorder;
    Path turned;
    turned.MoveTo({0, 5});
    turned.LineTo({5, 0});
    turned.LineTo({10, 5});
    turned.LineTo({5, 10});
    turned.Close();
    recorder.PushClip(turned, FillRule::NonZero);
    recorder.PopClip();
    EXPECT_FALSE(recorder.TakeList().clips[1].rectangular);
}

TEST(DisplayRecorder, TextIsKeptAsGlyphsEachOnce)
{
    const SquareFont font;
    render::TextRun run;
    run.font = &font;
    run.glyphs = {7, 7, 0};
    run.positions = {{0, 0}, {1.5, 0}, {9, 0}};
    run.toPaper = {2, 0, 0, 2, 100, 50};
    run.color = 0x00123456;
    DisplayRecorder recorder;
    recorder.Text(run);
    recorder.Text(run);
    run.invisible = true;
    recorder.Text(run);
    const DisplayList list = recorder.TakeList();
    ASSERT_EQ(list.items.size(), 2U) << "what doesn't show isn't kept";
    EXPECT_EQ(list.items[0].kind, ItemKind::Text);
    EXPECT_EQ(list.items[0].Box(), (Box2{{100, 50}, {105, 52}})) << "a blank takes no room";
    EXPECT_EQ(list.runs[0].count, 2U);
    EXPECT_EQ(font.asked, 2) << "the letter and the blank";
}

TEST(DisplayRecorder, PicturesAreKeptOnce)
{
    render::Picture picture;
    picture.id = 5;
    picture.width = picture.height = 1;
    picture.bytes = "abc";
    DisplayRecorder recorder;
    recorder.Image(picture, {10, 0, 0, 20, 1, 2}, 0);
    recorder.Image(picture, {10, 0, 0, 20, 50, 2}, 0);
    const DisplayList list = recorder.TakeList();
    ASSERT_EQ(list.pictures.size(), 2U);
    EXPECT_EQ(list.pictures[0].picture, list.pictures[1].picture);
    EXPECT_EQ(list.items[0].Box(), (Box2{{1, 2}, {11, 22}}));
}

TEST(DisplayRecorder, EndlessLinesCountForNoExtents)
{
    DisplayRecorder recorder;
    recorder.BeginEntity({1, "XLINE", "0", 0});
    recorder.Stroke(LineOf({-1000, 3}, {1000, 3}), {});
    recorder.EndEntity();
    recorder.BeginEntity({2, "LINE", "0", 0});
    recorder.Stroke(LineOf({0, 0}, {4, 5}), {});
    recorder.EndEntity();
    EXPECT_EQ(recorder.TakeList().Extents(), (Box2{{0, 0}, {4, 5}}));
    const SnapShapes shapes = recorder.TakeShapes();
    ASSERT_EQ(shapes.All().size(), 2U);
    EXPECT_FALSE(shapes.All()[0].firstIsEnd);
    EXPECT_TRUE(shapes.All()[1].firstIsEnd);
}

TEST(DisplayRecorder, OneSnapsToTheLineAndNotToItsDashes)
{
    Path dashes = LineOf({0, 0}, {3, 0});
    dashes.MoveTo({5, 0});
    dashes.LineTo({8, 0});
    DisplayRecorder recorder;
    recorder.BeginEntity({1, "LINE", "0", 0});
    recorder.Course(LineOf({0, 0}, {8, 0}));
    recorder.Stroke(dashes, {});
    recorder.EndEntity();
    const SnapShapes shapes = recorder.TakeShapes();
    ASSERT_EQ(shapes.All().size(), 1U);
    EXPECT_THAT(shapes.PointsOf(shapes.All()[0]), ElementsAre(Vec2{0, 0}, Vec2{8, 0}));
}

TEST(DisplayRecorder, TextsAndHatchesAreNothingToSnapTo)
{
    DisplayRecorder recorder;
    for (const char* kind : {"HATCH", "TEXT", "MTEXT", "ATTRIB"}) {
        recorder.BeginEntity({1, kind, "0", 0});
        recorder.Stroke(LineOf({0, 0}, {8, 0}), {});
        recorder.Fill(Triangle(), 0, FillRule::NonZero);
        recorder.EndEntity();
    }
    EXPECT_TRUE(recorder.TakeShapes().All().empty());
    recorder.BeginEntity({1, "SOLID", "0", 0});
    recorder.Fill(Triangle(), 0, FillRule::NonZero);
    recorder.EndEntity();
    EXPECT_EQ(recorder.TakeShapes().All().size(), 1U) << "a solid has corners";
}

} // namespace
} // namespace sm::scene
