// SPDX-License-Identifier: GPL-3.0-or-later
// Whole pages through Ghostscript, read back by tools that aren't ours.
#include "plotter/FakeDrawing.h"

#include "drawing/entities/Texts.h"
#include "postscript/PsDocument.h"
#include "render/TextLayout.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

namespace sm::plotter {
namespace {

using testing::HasSubstr;

std::string OutputOf(const std::string& command)
{
    std::string out;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    std::array<char, 4096> part{};
    for (std::size_t got = 0; (got = fread(part.data(), 1, part.size(), pipe)) > 0;) {
        out.append(part.data(), got);
    }
    EXPECT_EQ(pclose(pipe), 0) << command << "\n" << out;
    return out;
}

/// A page of A4, drawn on and distilled.
class DistilledTest : public testing::Test {
protected:
    DistilledTest()
        : writer(1200, testing::TempDir()),
          engine(render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""})),
          base(testing::TempDir() + "distilled-" + testing::UnitTest::GetInstance()->current_test_info()->name())
    {
        drawing::TextStyle strokes, outlines;
        strokes.name = "Standard";
        strokes.fontFile = "txt";
        outlines.name = "Arial";
        outlines.fontFile = "LiberationSans-Regular.ttf";
        drawing.styles = {strokes, outlines};
    }
    ~DistilledTest() override
    {
        std::remove((base + ".ps").c_str());
        std::remove((base + ".pdf").c_str());
    }
    void Show(const std::string& words, std::uint32_t style, double x, double y, double rotation = 0)
    {
        drawing::TextData text;
        text.text = words;
        text.style = style;
        text.height = 4;
        text.rotation = rotation;
        text.widthFactor = widthFactor;
        text.insertion = {x, y, 0};
        const render::LaidText& laid = engine->Lay(drawing, text);
        for (render::GlyphPart part : laid.glyphs) {
            part.run.penWidth = pen;
            writer.Text(part.run);
        }
    }
    void Distil(double width = 210, double height = 297)
    {
        WriteDocument({"Sheet", "Sheetmaker PDF", width, height, 1200, 0}, writer, base + ".ps");
        const std::string said =
            OutputOf("gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=pdfwrite -r1200 -dAutoRotatePages=/None "
                     "-dCompressPages=false -sOutputFile=" +
                     base + ".pdf " + base + ".ps");
        EXPECT_EQ(said, "");
    }
    std::string Lines() { return OutputOf("pdftotext -layout " + base + ".pdf - | sed 's/^ *//; /^\\f*$/d'"); }

    double pen = 0.25;
    double widthFactor = 1;
    FakeDrawing drawing;
    PsWriter writer;
    std::unique_ptr<render::TextEngine> engine;
    std::string base;
};

TEST_F(DistilledTest, OutlineTextIsFoundInOrder)
{
    Show("Grundriß 1:50", 1, 20, 280);
    Show("Чертёж здания, лист 2", 1, 20, 260);
    Show("图纸标题", 1, 20, 240);
    Show("平面図 カタカナ", 1, 20, 220);
    Show("한국어 도면", 1, 20, 200);
    Show("%%c20 %%p0.5 45%%d", 1, 20, 180);
    Show("Ωμ ≤ ⌀", 1, 20, 160);
    Distil();
    EXPECT_EQ(Lines(),
              "Grundriß 1:50\nЧертёж здания, лист 2\n图纸标题\n平面図 カタカナ\n한국어 도면\nØ20 ±0.5 45°\nΩμ ≤ ⌀\n");
    EXPECT_THAT(OutputOf("mutool draw -q -F txt " + base + ".pdf"), HasSubstr("Чертёж здания, лист 2"));
}

TEST_F(DistilledTest, StrokeTextIsFound)
{
    Show("Section A-A", 0, 20, 280);
    Show("Разрез 1-1", 0, 20, 260);
    Show("图纸", 0, 20, 240);
    Distil();
    EXPECT_EQ(Lines(), "Section A-A\nРазрез 1-1\n图纸\n");
    EXPECT_THAT(OutputOf("mutool draw -q -F txt " + base + ".pdf"), HasSubstr("Разрез 1-1"));
}

/// Dark pixels of the picture's row that runs `millimetres` above the sheet's lower edge.
int InkAcross(const std::string& pdf, double millimetres, int resolution)
{
    const std::string all = OutputOf("pdftoppm -gray -singlefile -r " + std::to_string(resolution) + " " + pdf);
    int width = 0, height = 0;
    EXPECT_EQ(std::sscanf(all.c_str(), "P5 %d %d", &width, &height), 2);
    const int row = height - static_cast<int>(millimetres * resolution / 25.4);
    const std::string pixels =
        all.substr(all.size() - static_cast<std::size_t>((height - row) * width), static_cast<std::size_t>(width));
    return static_cast<int>(std::count_if(pixels.begin(), pixels.end(), [](char c) { return c >= 0 && c < 100; }));
}

TEST_F(DistilledTest, ThePenKeepsItsWidthWhereTextIsSqueezed)
{
    pen = 1;
    widthFactor = 0.2;
    Show("I", 0, 20, 50);
    Show("I", 0, 60, 50, 180); // hangs below the row
    Distil();
    EXPECT_NEAR(InkAcross(base + ".pdf", 52, 600), 600 / 25.4, 2);
    EXPECT_NEAR(InkAcross(base + ".pdf", 48, 600), 600 / 25.4, 2);
    EXPECT_THAT(OutputOf("pdffonts " + base + ".pdf"), HasSubstr("Type 3"));
}

TEST_F(DistilledTest, TextOfManySizesIsFoundAndDrawn)
{
    std::string expected;
    for (int i = 0; i < 80; ++i) {
        widthFactor = 0.5 + 0.02 * i;
        Show("I" + std::to_string(i), 0, 20 + 90 * (i % 2), 280 - 6 * (i / 2));
        expected += "I" + std::to_string(i) + "\n";
    }
    Distil();
    EXPECT_EQ(OutputOf("pdftotext -raw " + base + ".pdf - | tr -s ' \\f' '\\n' | sort -uV | sed '/^$/d'"), expected);
    EXPECT_GE(InkAcross(base + ".pdf", 282, 600), 2 * 6);                        // fonts
    EXPECT_GE(InkAcross(base + ".pdf", 282 - 6 * 39, 600), 2 * 6);               // paths
    EXPECT_EQ(OutputOf("pdffonts " + base + ".pdf | grep -c 'Type 3'"), "65\n"); // the one that doesn't show included
}

TEST_F(DistilledTest, InvisibleTextLeavesNoInk)
{
    render::TextRun run;
    run.text = "hidden";
    run.invisible = true;
    for (std::uint32_t i = 0; i < 6; ++i) {
        run.positions.push_back({0.5 * i, 0});
        run.clusters.push_back(i);
    }
    run.advance = 3;
    run.toPaper = {10, 0, 0, 10, 50, 100};
    writer.Text(run);
    Distil();
    EXPECT_EQ(Lines(), "hidden\n");
    const std::string pixels = OutputOf("pdftoppm -r 50 -gray " + base + ".pdf | tail -c 1000 | tr -d '\\377' | wc -c");
    EXPECT_EQ(std::stoi(pixels), 0);
}

TEST_F(DistilledTest, TextStandsWhereItWasPut)
{
    Show("Here", 1, 50.8, 101.6); // 2 and 4 inches
    Distil();
    // Capitals are 4 mm high: the em is 4 mm * 2048 / 1409 = 16.4811 pt.
    const std::string structure = OutputOf("mutool draw -q -F stext " + base + ".pdf");
    EXPECT_THAT(structure, testing::AnyOf(HasSubstr("size=\"16.48"), HasSubstr("size=\"16.5")));
    EXPECT_THAT(structure, HasSubstr("x=\"144.000"));
    EXPECT_THAT(structure, HasSubstr("y=\"553.889")); // from the top: 841.89 - 288
}

TEST_F(DistilledTest, TurnedTextIsOneLine)
{
    Show("Achse B", 1, 100, 100, 90);
    Show("ось Б", 0, 150, 100, 30);
    Distil();
    const std::string found = OutputOf("mutool draw -q -F txt " + base + ".pdf");
    EXPECT_THAT(found, HasSubstr("Achse B"));
    EXPECT_THAT(found, HasSubstr("ось Б"));
}

TEST_F(DistilledTest, ManyDifferentGlyphsSpanSeveralFonts)
{
    std::string expected;
    for (int line = 0; line < 20; ++line) {
        std::string words;
        for (int i = 0; i < 30; ++i) {
            const int c = 0x4E00 + line * 30 + i;
            words += {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 0x3F)),
                      static_cast<char>(0x80 | (c & 0x3F))};
        }
        Show(words, 1, 10, 280 - 10 * line);
        expected += words + "\n";
    }
    Distil();
    EXPECT_EQ(Lines(), expected);
    EXPECT_THAT(OutputOf("pdffonts " + base + ".pdf"), HasSubstr("TrueType"));
}

TEST_F(DistilledTest, LinesHaveTheirPlacesAndWidths)
{
    render::Path path;
    path.MoveTo({25.4, 25.4});
    path.LineTo({127, 25.4});
    writer.Stroke(path, {0xFF0000, 0.5, render::LineCap::Round, render::LineJoin::Round});
    Distil();
    const std::string trace = OutputOf("mutool trace " + base + ".pdf");
    EXPECT_THAT(trace, HasSubstr("colorspace=\"DeviceRGB\" color=\"1 0 0\""));
    EXPECT_THAT(trace, HasSubstr("linewidth=\"23.62\""));
    EXPECT_THAT(trace, HasSubstr("<moveto x=\"1200\" y=\"1200\"/>"));
    EXPECT_THAT(trace, HasSubstr("<lineto x=\"6000\" y=\"1200\"/>"));
    EXPECT_THAT(trace, HasSubstr("transform=\".06 0 0 -.06 0 "));
}

TEST_F(DistilledTest, ThePageHasTheSheetsSize)
{
    writer.Finish();
    Distil(594, 420);
    const std::string info = OutputOf("pdfinfo " + base + ".pdf | sed -n 's/^Page size: *//p; s/^Pages: *//p'");
    double width = 0, height = 0;
    int pages = 0;
    ASSERT_EQ(std::sscanf(info.c_str(), "%d\n%lf x %lf", &pages, &width, &height), 3) << info;
    EXPECT_EQ(pages, 1);
    EXPECT_NEAR(width, 594 / 25.4 * 72, 0.01);
    EXPECT_NEAR(height, 420 / 25.4 * 72, 0.01);
}

} // namespace
} // namespace sm::plotter
