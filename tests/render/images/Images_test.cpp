// SPDX-License-Identifier: GPL-3.0-or-later
// IMAGE, WIPEOUT and underlays on the sheet: placement, clips, frames, what is missing.
#include "render/PictureFiles.h"
#include "render/SmallDrawing.h"

#include "drawing/Finding.h"
#include "render/References.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

/// Pages of two inches by one, gray, and one that is broken.
class GrayPages final : public IPageRasterizer {
public:
    Vec2 SizeOf(const std::string&, std::int32_t page) override
    {
        if (page == 9) {
            throw std::runtime_error("can't be drawn: no such page");
        }
        return {2, 1};
    }
    Pixels Show(const std::string&, std::int32_t page, double dots) override
    {
        asked.push_back(std::to_string(page) + " at " + RecordingCanvas::Number(dots));
        return {2, 1, std::string("\x40\x40\x40\xFF\xFF\xFF", 6)};
    }
    std::vector<std::string> asked;
};

struct Shown {
    Lines lines;
    std::string counts;
    std::vector<std::string> findings;
};

class ImagesTest : public testing::Test {
protected:
    ImagesTest()
    {
        folder.Write("rgb.png", PngBytes(2, 1, PNG_FORMAT_RGB, {255, 0, 0, 0, 255, 0}));
        folder.Write("fine.png", PngBytes(400, 400, PNG_FORMAT_GRAY, Bytes(160'000, 9)));
        folder.Write("bits.bmp", BmpBytes(4, 2, 1, std::string("\0\0\0\0\xFF\xFF\xFF\0", 8), std::string(8, '\x50')));
        folder.Write("broken.png", "\x89PNG\r\n\x1a\n");
        folder.Write("page.pdf", "%PDF-1.4");
    }

    /// The drawing lies in the folder; `frame` is the setting of images' and wipeouts' frames.
    Shown Show(const std::string& entities, int frame = 0)
    {
        SmallDrawing small;
        small.entities = entities;
        small.objects = "0 IMAGEDEF | 5 A1 | 1 .\\RGB.PNG | 10 2 | 20 1 | 280 1 |"
                        "0 IMAGEDEF | 5 A2 | 1 gone.png | 10 2 | 20 1 | 280 1 |"
                        "0 IMAGEDEF | 5 A3 | 1 C:\\x\\bits.bmp | 10 4 | 20 2 | 280 1 |"
                        "0 IMAGEDEF | 5 A4 | 1 broken.png | 10 2 | 20 1 | 280 1 |"
                        "0 IMAGEDEF | 5 A5 | 1 rgb.png | 10 2 | 20 1 | 280 0 |"
                        "0 IMAGEDEF | 5 A6 | 1 fine.png | 10 400 | 20 400 | 280 1 |"
                        "0 PDFDEFINITION | 5 B1 | 1 page.pdf | 2 3 | 0 PDFDEFINITION | 5 B2 | 1 page.pdf | 2 9 |"
                        "0 DWFDEFINITION | 5 B3 | 1 page.pdf | 2 1 |"
                        "0 RASTERVARIABLES | 5 C1 | 70 " +
                        std::to_string(frame) + " | 0 WIPEOUTVARIABLES | 5 C2 | 70 " + std::to_string(frame);
        const auto drawing = small.Open();
        References references(*drawing, {{folder.Path()}, pages, {}});
        Scene scene{*drawing, SpaceOf(*drawing, false), {}, {}, {{0, 0}, {100, 100}}};
        scene.references = &references;
        scene.resolution = 254;
        RecordingCanvas canvas;
        FakeTextEngine text;
        RenderReport report(*drawing);
        RenderScene(scene, canvas, text, report);
        Shown shown{{canvas.lines.begin() + 1, canvas.lines.end() - 1}, CountsOf(report), {}};
        for (const drawing::Finding& finding : references.Findings()) {
            shown.findings.push_back((finding.contentLost ? "lost: " : "") + finding.text);
        }
        pictures = canvas.pictures;
        return shown;
    }

    PictureFolder folder;
    std::shared_ptr<GrayPages> pages = std::make_shared<GrayPages>();
    std::vector<Picture> pictures;
};

/// An image of 2 x 1 pixels of 10 mm at 10, 20; `definition` and what else it has.
std::string Image(const std::string& definition, const std::string& more = "70 7")
{
    return "0 IMAGE | 8 0 | 10 10 | 20 20 | 11 10 | 21 0 | 12 0 | 22 10 | 13 2 | 23 1 | 340 " + definition + " | " +
           more + " |";
}

TEST_F(ImagesTest, AreDrawnAsWritten)
{
    const std::string square = "image rgb 2x1 [20 0 0 10 10 20]";
    const struct {
        const char* name;
        std::string entity;
        Lines lines;
    } rows[] = {
        {"straight", Image("A1"), {square}},
        {"turned",
         "0 IMAGE | 8 0 | 10 50 | 20 50 | 11 0 | 21 10 | 12 -10 | 22 0 | 13 2 | 23 1 | 340 A1 | 70 7",
         {"image rgb 2x1 [0 20 -10 0 50 50]"}},
        {"off the page", "0 IMAGE | 8 0 | 10 500 | 20 50 | 11 1 | 12 0 | 22 1 | 13 2 | 23 1 | 340 A1 | 70 7", {}},
        {"clipped to a rectangle",
         Image("A1", "70 7 | 280 1 | 71 1 | 91 2 | 14 -0.5 | 24 -0.5 | 14 0.5 | 24 0"),
         {"clip evenodd m 10 30 l 20 30 l 20 25 l 10 25 h", square, "pop"}},
        {"clipped to a polygon",
         Image("A1", "70 7 | 280 1 | 71 2 | 91 3 | 14 -0.5 | 24 -0.5 | 14 1.5 | 24 -0.5 | 14 0.5 | 24 0.5"),
         {"clip evenodd m 10 30 l 30 30 l 20 20 h", square, "pop"}},
        {"clipped the other way round",
         Image("A1", "70 7 | 280 1 | 71 1 | 91 2 | 14 -0.5 | 24 -0.5 | 14 0.5 | 24 0 | 290 1"),
         {"clip evenodd m 10 20 l 30 20 l 30 30 l 10 30 h m 10 30 l 20 30 l 20 25 l 10 25 h", square, "pop"}},
        {"clip that isn't used", Image("A1", "70 3 | 280 1 | 71 1 | 91 2 | 14 0 | 24 0 | 14 1 | 24 0.5"), {square}},
        {"not shown", Image("A1", "70 6"), {}},
        {"black and white, opaque",
         Image("A3", "70 7 | 62 1"),
         {"fill FFFFFF evenodd box 10 20 30 30", "image mask FF0000 4x2 [20 0 0 10 10 20]"}},
        {"black and white, transparent", Image("A3", "70 15 | 62 1"), {"image mask FF0000 4x2 [20 0 0 10 10 20]"}},
        {"much finer than the plot",
         "0 IMAGE | 8 0 | 10 0 | 20 0 | 11 0.025 | 12 0 | 22 0.025 | 13 400 | 23 400 | 340 A6 | 70 7",
         {"image gray 100x100 [10 0 0 10 0 0]"}},
    };
    for (const auto& row : rows) {
        const Shown shown = Show(row.entity);
        EXPECT_EQ(shown.lines, row.lines) << row.name;
        EXPECT_EQ(shown.findings, std::vector<std::string>()) << row.name;
    }
}

TEST_F(ImagesTest, FramesAreDrawnAsTheDrawingSays)
{
    const Lines picture{"image rgb 2x1 [20 0 0 10 10 20]"};
    const Lines framed{"image rgb 2x1 [20 0 0 10 10 20]", "stroke 000000 0.25 box 10 20 30 30"};
    EXPECT_EQ(Show(Image("A1"), 0).lines, picture);
    EXPECT_EQ(Show(Image("A1"), 1).lines, framed);
    EXPECT_EQ(Show(Image("A1"), 2).lines, picture);
    EXPECT_EQ(Show(Image("A1", "70 6"), 1).lines, Lines{"stroke 000000 0.25 box 10 20 30 30"});
}

TEST_F(ImagesTest, MissingOnesShowTheirNameAndAreNamedOnce)
{
    const Shown shown = Show(Image("A2") + Image("A2") + Image("A4") + Image("A5") + Image("FF"));
    EXPECT_EQ(shown.counts, "not drawn 5");
    ASSERT_EQ(shown.lines.size(), 10U);
    EXPECT_EQ(shown.lines[0], "stroke 000000 0.25 box 10 20 30 30");
    EXPECT_EQ(shown.lines[1].substr(shown.lines[1].rfind(']')), "] gone.png");
    EXPECT_EQ(shown.findings,
              (std::vector<std::string>{"lost: the picture \"gone.png\" is not found; put it beside the drawing",
                                        "lost: the picture \"broken.png\" is damaged: the file ends too early",
                                        "the picture \"rgb.png\" is unloaded; it is not shown"}));
}

TEST_F(ImagesTest, EqualPicturesAreOne)
{
    Show(Image("A1") + Image("A1") + Image("A1", "70 7 | 283 50"));
    ASSERT_EQ(pictures.size(), 3U);
    EXPECT_EQ(pictures[0].id, pictures[1].id);
    EXPECT_NE(pictures[0].id, pictures[2].id);
    EXPECT_EQ(pictures[2].bytes, std::string("\xFF\x80\x80\x80\xFF\x80", 6));
}

TEST_F(ImagesTest, WipeoutsHideWhatIsBeneath)
{
    const std::string wipeout = "0 LINE | 8 0 | 10 0 | 20 0 | 11 50 | 21 50 |"
                                "0 WIPEOUT | 8 0 | 62 3 | 10 10 | 20 20 | 11 20 | 12 0 | 22 10 | 13 1 | 23 1 | 70 7 | "
                                "280 1 | 71 2 | 91 3 | 14 -0.5 | 24 -0.5 | 14 0.5 | 24 -0.5 | 14 0 | 24 0.5 |";
    const std::string line = "stroke 000000 0.25 m 0 0 l 50 50", fill = "fill FFFFFF evenodd m 10 30 l 30 30 l 20 20 h";
    EXPECT_EQ(Show(wipeout, 0).lines, (Lines{line, fill}));
    EXPECT_EQ(Show(wipeout, 1).lines, (Lines{line, fill, "stroke 00FF00 0.25 m 10 30 l 30 30 l 20 20 h"}));
    EXPECT_EQ(Show(wipeout, 2).lines, (Lines{line, fill}));
}

TEST_F(ImagesTest, UnderlaysShowTheirPage)
{
    const std::string frame = "stroke 000000 0.25 box 10 20 30 30";
    const auto underlay = [](const std::string& more) {
        return "0 PDFUNDERLAY | 8 0 | 10 10 | 20 20 | 41 10 | 42 10 | 281 100 | " + more + " |";
    };
    EXPECT_EQ(
        Show(underlay("340 B1 | 280 2") + underlay("340 B1 | 280 2")).lines,
        (Lines{"image gray clear 2x1 [20 0 0 10 10 20]", frame, "image gray clear 2x1 [20 0 0 10 10 20]", frame}));
    EXPECT_EQ(pages->asked, std::vector<std::string>{"3 at 119"});
    EXPECT_EQ(Show(underlay("340 B1 | 280 3 | 11 0 | 21 0 | 11 1 | 21 0.5")).lines,
              (Lines{"clip evenodd box 10 20 20 25", "image gray clear 2x1 [20 0 0 10 10 20]", "pop",
                     "stroke 000000 0.25 box 10 20 20 25"}));
    EXPECT_EQ(Show(underlay("340 B1 | 280 0")).lines, Lines());
    const Shown broken = Show(underlay("340 B2 | 280 2") + underlay("340 B3 | 280 2"));
    EXPECT_EQ(broken.counts, "not drawn 2");
    EXPECT_EQ(broken.findings,
              (std::vector<std::string>{
                  "lost: the page 9 of \"page.pdf\" can't be drawn: no such page",
                  "lost: the page 1 of \"page.pdf\" can't be drawn: it is no PDF file; save it as one"}));
}

} // namespace
} // namespace sm::render
