// SPDX-License-Identifier: GPL-3.0-or-later
// Layouts as they are recorded for the screen, and what places of the picture mean in the drawing.
#include "drawing/Drawing.h"
#include "render/References.h"
#include "render/TextLayout.h"
#include "scene/LayoutPicture.h"
#include "scene/Pieces.h"

#include <gmock/gmock.h>

namespace sm::scene {
namespace {

std::string PointTags(int code, double x, double y, double z)
{
    return Tag(code, std::to_string(x)) + Tag(code + 10, std::to_string(y)) + Tag(code + 20, std::to_string(z));
}

std::string LineTags(double x1, double y1, double x2, double y2, const std::string& more = {})
{
    return Tag(0, "LINE") + Tag(8, "0") + more + PointTags(10, x1, y1, 0) + PointTags(11, x2, y2, 0);
}

std::string ViewTags(double dx, double dy, double dz, double twist)
{
    return Tag(0, "TABLE") + Tag(2, "VPORT") + Tag(0, "VPORT") + Tag(2, "*ACTIVE") + Tag(70, "0") +
           PointTags(16, dx, dy, dz) + PointTags(17, 30, 40, 0) + Tag(40, "100") + Tag(41, "1") +
           Tag(51, std::to_string(twist)) + Tag(0, "ENDTAB");
}

const std::string kDashed = Tag(0, "TABLE") + Tag(2, "LTYPE") + Tag(0, "LTYPE") + Tag(2, "DASHED") + Tag(70, "0") +
                            Tag(3, "") + Tag(72, "65") + Tag(73, "2") + Tag(40, "3.0") + Tag(49, "2.0") +
                            Tag(49, "-1.0") + Tag(0, "ENDTAB");

class Layouts : public ::testing::Test {
protected:
    std::unique_ptr<LayoutPicture> Record(const std::string& tables, const std::string& entities)
    {
        return RecordBytes(Tag(0, "SECTION") + Tag(2, "TABLES") + tables + Tag(0, "ENDSEC") + Tag(0, "SECTION") +
                           Tag(2, "ENTITIES") + entities + Tag(0, "ENDSEC") + Tag(0, "EOF"));
    }
    std::unique_ptr<LayoutPicture> RecordBytes(const std::string& bytes)
    {
        return RecordOf(drawing::Drawing::FromBytes(bytes, "plan.dxf"), 0);
    }
    std::unique_ptr<LayoutPicture> RecordOf(std::unique_ptr<drawing::Drawing> opened, std::size_t layout)
    {
        drawing = std::move(opened);
        const auto text = render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
        render::References references(*drawing, {});
        return RecordLayout(*drawing, layout, *text, references, stop);
    }
    /// The snap nearest to a place of the drawing, in drawing units.
    static std::optional<Vec2> SnapNear(const LayoutPicture& picture, Vec2 point)
    {
        const auto snap = picture.snaps.Find(picture.map.ToScene(point), picture.map.Scale());
        return snap ? std::optional(picture.map.ToDrawing(snap->point)) : std::nullopt;
    }
    std::unique_ptr<drawing::Drawing> drawing;
    std::atomic<bool> stop = false;
};

TEST_F(Layouts, PointsOfTheModelComeBackExactly)
{
    const auto picture = Record({}, LineTags(123456.789, 7654321.125, 123556.25, 7654400.0625));
    EXPECT_EQ(SnapNear(*picture, {123456.9, 7654321}), (Vec2{123456.789, 7654321.125}));
    EXPECT_EQ(SnapNear(*picture, {123556.3, 7654400}), (Vec2{123556.25, 7654400.0625}));
    EXPECT_FALSE(picture->paper.has_value());
}

TEST_F(Layouts, OneSnapsToWholeLinesHoweverTheyAreDashed)
{
    const auto picture = Record(kDashed, LineTags(0, 0, 100, 60, Tag(6, "DASHED")));
    EXPECT_GT(picture->list.PointsOf(picture->list.items.at(0)).size(), 20U) << "it is drawn in dashes";
    EXPECT_EQ(SnapNear(*picture, {50.2, 30}), (Vec2{50, 30}));
    EXPECT_EQ(SnapNear(*picture, {100, 60}), (Vec2{100, 60}));
    EXPECT_EQ(SnapNear(*picture, {20, 12}), std::nullopt) << "a dash has no end";
}

TEST_F(Layouts, ATurnedViewShowsTurnedAndGivesWorldPoints)
{
    const auto picture = Record(ViewTags(0, 0, 1, 90), LineTags(0, 0, 100, 0));
    EXPECT_NEAR(picture->list.items.at(0).Box().Width(), 0, 1e-3) << "it stands upright";
    EXPECT_GT(picture->list.items.at(0).Box().Height(), 100);
    const auto end = SnapNear(*picture, {99.8, 0.1});
    ASSERT_TRUE(end.has_value());
    EXPECT_NEAR(end->x, 100, 1e-9);
    EXPECT_NEAR(end->y, 0, 1e-9);
}

TEST_F(Layouts, AViewFromAsideGivesPointsOfTheGround)
{
    const auto picture = Record(ViewTags(1, -1, 1, 0), LineTags(0, 0, 100, 0) + LineTags(0, 0, 0, 80));
    for (const Vec2 point : {Vec2{0, 0}, Vec2{100, 0}, Vec2{0, 80}}) {
        const auto found = SnapNear(*picture, point);
        ASSERT_TRUE(found.has_value());
        EXPECT_NEAR(found->x, point.x, 1e-9);
        EXPECT_NEAR(found->y, point.y, 1e-9);
    }
}

TEST_F(Layouts, AViewAlongTheGroundGivesFinitePoints)
{
    const auto picture = Record(ViewTags(0, -1, 0, 0), LineTags(0, 0, 100, 0));
    const Vec2 point = picture->map.ToDrawing({5, 6});
    EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
}

TEST_F(Layouts, AnEmptyDrawingHasSomewhereToPick)
{
    const auto picture = Record({}, LineTags(0, 0, 10, 10, Tag(60, "1")));
    EXPECT_TRUE(picture->list.items.empty());
    EXPECT_GT(picture->home.Width(), 0);
    EXPECT_EQ(picture->map.ToDrawing(picture->map.ToScene({3, 4})), (Vec2{3, 4}));
}

TEST_F(Layouts, ADrawingOfASinglePointHasRoomRoundIt)
{
    const auto picture = Record({}, Tag(0, "POINT") + Tag(8, "0") + PointTags(10, 5, 6, 0));
    EXPECT_GT(picture->home.Width(), 1);
}

TEST_F(Layouts, RecordingStopsWhenItIsToldTo)
{
    stop = true;
    EXPECT_EQ(Record({}, LineTags(0, 0, 100, 0)), nullptr);
}

TEST_F(Layouts, ASheetShowsItsPaperAndWhatItsViewportsShow)
{
    const auto picture = RecordOf(drawing::Drawing::Open(std::string(SM_SOURCE_DIR) + "/samples/house.dxf"), 1);
    ASSERT_TRUE(picture->paper.has_value());
    EXPECT_NEAR(picture->paper->Width(), 420, 1e-9);
    EXPECT_NEAR(picture->paper->Height(), 297, 1e-9);
    std::size_t found = 0;
    for (double x = picture->paper->min.x; x < picture->paper->max.x; x += 2) {
        for (double y = picture->paper->min.y; y < picture->paper->max.y; y += 2) {
            const auto snap = picture->snaps.Find({x, y}, 3);
            if (!snap)
                continue;
            ++found;
            EXPECT_GE(snap->point.x, picture->printable->min.x);
            EXPECT_LE(snap->point.x, picture->printable->max.x);
            EXPECT_GE(snap->point.y, picture->printable->min.y);
            EXPECT_LE(snap->point.y, picture->printable->max.y) << "what a viewport cuts off is nothing to snap to";
        }
    }
    EXPECT_GT(found, 100U);
}

} // namespace
} // namespace sm::scene
