// SPDX-License-Identifier: GPL-3.0-or-later
// Shapes in pixels by the canvas of our own.
#include "scene/SoftCanvas.h"

#include "render/ClipBox.h"
#include "render/Picture.h"
#include "scene/Pieces.h"

#include <gmock/gmock.h>

namespace sm::scene {
namespace {
using render::FillRule;
using render::LineCap;
using render::LineJoin;
using render::Path;

/// White paper, and a canvas on it.
struct SoftPaper {
    PixelImage image{10, 6};
    std::unique_ptr<IPixelCanvases> canvases = CreateSoftCanvases();
    std::unique_ptr<IPixelCanvas> canvas;

    SoftPaper()
    {
        for (int y = 0; y < image.Height(); ++y)
            std::fill_n(image.Row(y), image.Width(), 0xFFFFFFFF);
        canvas = canvases->On(image);
    }
    /// Tenths of black of each pixel, rows from the top; '#' is all black, '.' none.
    [[nodiscard]] std::vector<std::string> Rows() const
    {
        std::vector<std::string> rows;
        for (int y = 0; y < image.Height(); ++y) {
            rows.emplace_back();
            for (int x = 0; x < image.Width(); ++x) {
                const int tenths = static_cast<int>((255 - (image.Row(y)[x] & 0xFF)) * 10 / 255);
                rows.back() += tenths == 0 ? '.' : tenths == 10 ? '#' : static_cast<char>('0' + tenths);
            }
        }
        return rows;
    }
};

Path BoxOf(Vec2 from, Vec2 to)
{
    Path path;
    render::AppendBox(path, {from, to});
    return path;
}

struct PaintedCase {
    const char* name;
    std::function<void(IPixelCanvas&)> paint;
    std::vector<std::string> rows;
};

const PaintedCase kPainted[] = {
    {"Whole",
     [](IPixelCanvas& canvas) {
         canvas.FillBox({{2, 1}, {5, 4}}, 0);
     },
     {"..........", "..###.....", "..###.....", "..###.....", "..........", ".........."}},
    {"Parts",
     [](IPixelCanvas& canvas) {
         canvas.FillBox({{1.5, 0.75}, {4.25, 2.5}}, 0);
     },
     {".122......", ".5##2.....", ".2551.....", "..........", "..........", ".........."}},
    {"HalfClear",
     [](IPixelCanvas& canvas) {
         canvas.FillBox({{0, 0}, {2, 2}}, 0x80000000);
     },
     {"44........", "44........", "..........", "..........", "..........", ".........."}},
    {"BeyondTheEdges",
     [](IPixelCanvas& canvas) {
         canvas.FillBox({{-1e6, 4}, {1e6, 1e6}}, 0);
     },
     {"..........", "..........", "..........", "..........", "##########", "##########"}},
    {"HoleByEvenOdd",
     [](IPixelCanvas& canvas) {
         Path path = BoxOf({1, 0}, {7, 5});
         render::AppendBox(path, {{3, 1}, {5, 4}});
         canvas.Fill(path, 0, FillRule::EvenOdd);
     },
     {".######...", ".##..##...", ".##..##...", ".##..##...", ".######...", ".........."}},
    {"NoHoleByNonZero",
     [](IPixelCanvas& canvas) {
         Path path = BoxOf({1, 0}, {7, 5});
         render::AppendBox(path, {{3, 1}, {5, 4}});
         canvas.Fill(path, 0, FillRule::NonZero);
     },
     {".######...", ".######...", ".######...", ".######...", ".######...", ".........."}},
    {"Slope",
     [](IPixelCanvas& canvas) {
         Path path = LineOf({0, 0}, {4, 4});
         path.LineTo({0, 4});
         canvas.Fill(path, 0, FillRule::NonZero);
     },
     {"5.........", "#5........", "##5.......", "###5......", "..........", ".........."}},
    {"ButtLine",
     [](IPixelCanvas& canvas) {
         canvas.Stroke(LineOf({2, 3}, {7, 3}), {0, 2, LineCap::Butt});
     },
     {"..........", "..........", "..#####...", "..#####...", "..........", ".........."}},
    {"SquareLine",
     [](IPixelCanvas& canvas) {
         canvas.Stroke(LineOf({2, 3}, {7, 3}), {0, 2, LineCap::Square});
     },
     {"..........", "..........", ".#######..", ".#######..", "..........", ".........."}},
    {"SquarePoint",
     [](IPixelCanvas& canvas) {
         canvas.Stroke(LineOf({3, 3}, {3, 3}), {0, 2, LineCap::Square});
     },
     {"..........", "..........", "..##......", "..##......", "..........", ".........."}},
    {"MitredFrame",
     [](IPixelCanvas& canvas) {
         canvas.FrameBox({{2, 1}, {7, 5}}, {0, 2});
     },
     {".#######..", ".#######..", ".##...##..", ".##...##..", ".#######..", ".#######.."}},
    {"BevelledCorner",
     [](IPixelCanvas& canvas) {
         Path path = LineOf({0, 3}, {4, 3});
         path.LineTo({4, 6});
         canvas.Stroke(path, {0, 4, LineCap::Butt, LineJoin::Bevel});
     },
     {"..........", "####5.....", "#####5....", "######....", "######....", "..####...."}},
    {"DashedFrame",
     [](IPixelCanvas& canvas) {
         PixelPen pen{0, 1};
         pen.isDashed = true;
         canvas.FrameBox({{0.5, 1.5}, {8.5, 20}}, pen);
     },
     {"..........", "####5.5##.", "........#.", "........#.", "#.......#.", "#.......5."}},
};

class SoftCanvasPaints : public testing::TestWithParam<PaintedCase> {};

TEST_P(SoftCanvasPaints, PixelByPixel)
{
    const SoftPaper paper;
    GetParam().paint(*paper.canvas);
    EXPECT_EQ(paper.Rows(), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(Shapes, SoftCanvasPaints, testing::ValuesIn(kPainted),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SoftCanvas, ARoundPointIsACircle)
{
    const SoftPaper paper;
    paper.canvas->Stroke(LineOf({5, 3}, {5, 3}), {0, 4, LineCap::Round});
    double ink = 0;
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 10; ++x)
            ink += (255 - (paper.image.Row(y)[x] & 0xFF)) / 255.0;
    EXPECT_NEAR(ink, 3.14159 * 4, 0.2);
}

TEST(SoftCanvas, ClipsKeepTheCommonPart)
{
    const SoftPaper paper;
    paper.canvas->SetClip({1, 1, 9, 5});
    paper.canvas->NarrowClip(BoxOf({0, 0}, {4.5, 6}), FillRule::NonZero);
    paper.canvas->NarrowClip(BoxOf({2, 2}, {10, 6}), FillRule::NonZero);
    paper.canvas->FillBox({{0, 0}, {10, 6}}, 0);
    EXPECT_EQ(paper.Rows(), (std::vector<std::string>{"..........", "..........", "..##5.....", "..##5.....",
                                                      "..##5.....", ".........."}));
    paper.canvas->SetClip({0, 0, 1, 1});
    paper.canvas->FillBox({{0, 0}, {10, 6}}, 0);
    EXPECT_EQ(paper.Rows().front(), "#.........");
}

struct PlacedCase {
    const char* name;
    render::Picture picture;
    render::Matrix2 toPixels;
    std::uint32_t color;
    std::vector<std::string> rows;
};

const PlacedCase kPlaced[] = {
    {"GrayUpright",
     {1, render::Picture::Form::Gray, false, 2, 1, std::string("\x00\x80", 2)},
     {2, 0, 0, -2, 1, 4},
     0,
     {"..........", "..........", ".#4.......", ".#4.......", "..........", ".........."}},
    {"MaskTurned",
     {2, render::Picture::Form::Mask, false, 2, 1, "\x80"},
     {0, -4, -2, 0, 4, 5},
     0,
     {"..........", "..........", "..22......", "..77......", "..##......", ".........."}},
    {"WhiteIsClear",
     {3, render::Picture::Form::Rgb, true, 2, 1, std::string("\xFF\xFF\xFF\0\0\0", 6)},
     {4, 0, 0, -1, 0, 1},
     0,
     {".27#......", "..........", "..........", "..........", "..........", ".........."}},
    {"MeanOfMany",
     {4, render::Picture::Form::Gray, false, 4, 2, std::string("\0\xFF\0\xFF\xFF\0\xFF\0", 8)},
     {2, 0, 0, -1, 3, 2},
     0,
     {"..........", "...44.....", "..........", "..........", "..........", ".........."}},
    {"Damaged",
     {5, render::Picture::Form::JpegRgb, false, 2, 1, "no such file"},
     {2, 0, 0, -2, 1, 4},
     0,
     {"..........", "..........", "..........", "..........", "..........", ".........."}},
};

class SoftCanvasPlaces : public testing::TestWithParam<PlacedCase> {};

TEST_P(SoftCanvasPlaces, Pictures)
{
    const SoftPaper paper;
    paper.canvas->DrawPicture(GetParam().picture, GetParam().toPixels, GetParam().color);
    EXPECT_EQ(paper.Rows(), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(Pictures, SoftCanvasPlaces, testing::ValuesIn(kPlaced),
                         [](const auto& row) { return std::string(row.param.name); });

void PrintTo(const PaintedCase& row, std::ostream* out)
{
    *out << row.name;
}
void PrintTo(const PlacedCase& row, std::ostream* out)
{
    *out << row.name;
}

} // namespace
} // namespace sm::scene
