// SPDX-License-Identifier: GPL-3.0-or-later
// Shape files: the pen codes of a shape as strokes; SHAPE entities.
#include "render/PictureFiles.h"
#include "render/SmallDrawing.h"

#include "shapes/ShapePen.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <optional>

namespace sm::render {
namespace {

std::string Word(std::size_t value)
{
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

std::string Bytes(std::initializer_list<int> bytes)
{
    std::string text;
    for (const int byte : bytes) {
        text.push_back(static_cast<char>(byte));
    }
    return text;
}

/// Shapes 1, 2, ... of those codes; the first is called SQ.
std::string FileOf(const std::vector<std::string>& codes)
{
    std::string index, shapes;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const std::string shape = (i == 0 ? "SQ" : "") + std::string(1, '\0') + codes[i];
        index += Word(i + 1) + Word(shape.size());
        shapes += shape;
    }
    return "AutoCAD-86 shapes V1.0\r\n\x1A" + Word(1) + Word(codes.size()) + Word(codes.size()) + index + shapes +
           "EOF";
}

const std::string kSquare = Bytes({0x10, 0x14, 0x18, 0x1C, 0});

struct ShapeRow {
    const char* name;
    std::string codes;
    const char* path;
};

class ShapeCodesTest : public testing::TestWithParam<ShapeRow> {};

TEST_P(ShapeCodesTest, DrawStrokes)
{
    const auto file = ShapeFile::FromBytes(FileOf({kSquare, GetParam().codes}));
    ASSERT_NE(file, nullptr);
    Path path;
    EXPECT_TRUE(AppendShape(*file, 2, path));
    EXPECT_EQ(RecordingCanvas::Points(path), GetParam().path);
}

const ShapeRow kShapeRows[] = {
    {"Vectors", Bytes({0x20, 0x12, 0x33, 0}), " m 0 0 l 2 0 l 3 1 l 4.5 4"},
    {"PenUpAndScale", Bytes({2, 0x20, 1, 3, 2, 0x14, 4, 4, 0x10, 0}), " m 2 0 l 2 0.5 l 4 0.5"},
    {"KeepAndReturn", Bytes({5, 0x20, 6, 0x24, 0}), " m 0 0 l 2 0 m 0 0 l 0 2"},
    {"AnotherShape", Bytes({7, 1, 8, 3, -2, 0}), " m 0 0 l 1 0 l 1 1 l 0 1 l 0 0 l 3 -2"},
    {"ManySteps", Bytes({9, 1, 2, 3, 4, 0, 0, 0x10, 0}), " m 0 0 l 1 2 l 4 6 l 5 6"},
    {"HalfCircle", Bytes({10, 1, 0x04, 0}), " m 0 0 c 0 0.552 -0.448 1 -1 1 c -1.552 1 -2 0.552 -2 0"},
    {"ClockwiseQuarter", Bytes({10, 2, 0xC2 - 0x100, 0}), " m 0 0 c 0 1.105 0.895 2 2 2"},
    {"Bulge", Bytes({12, 2, 0, 127, 0}), " m 0 0 c 0 -0.552 0.448 -1 1 -1 c 1.552 -1 2 -0.552 2 0"},
    {"BulgesThenAVector", Bytes({13, 2, 0, 0, 0, 0, 0x10, 0}), " m 0 0 l 2 0 l 3 0"},
    {"VerticalTextAlone", Bytes({14, 8, 5, 5, 0x10, 0}), " m 0 0 l 1 0"},
    {"HoldsItself", Bytes({0x10, 7, 2, 0}), " m 0 0 l 1 0 l 2 0 l 3 0 l 4 0 l 5 0 l 6 0 l 7 0 l 8 0 l 9 0"},
    {"CutOff", Bytes({0x10, 8, 3}), " m 0 0 l 1 0 l 4 0"},
};

INSTANTIATE_TEST_SUITE_P(Codes, ShapeCodesTest, testing::ValuesIn(kShapeRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ShapeFileTest, KnowsItsNames)
{
    const auto file = ShapeFile::FromBytes(FileOf({kSquare}));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->NumberOf("sq"), 1);
    EXPECT_EQ(file->NumberOf("other"), 0);
    Path path;
    EXPECT_FALSE(AppendShape(*file, 2, path));
}

TEST(ShapeFileTest, ReadsUnifonts)
{
    const std::string shape = std::string("A\0", 2) + kSquare;
    const auto file =
        ShapeFile::FromBytes("AutoCAD-86 unifont 1.0\r\n\x1A" + Word(1) + Word(65) + Word(shape.size()) + shape);
    ASSERT_NE(file, nullptr);
    Path path;
    EXPECT_TRUE(AppendShape(*file, 65, path));
    EXPECT_EQ(RecordingCanvas::Points(path), " m 0 0 l 1 0 l 1 1 l 0 1 l 0 0");
}

TEST(ShapeFileTest, RefusesOtherFiles)
{
    EXPECT_EQ(ShapeFile::FromBytes("a text"), nullptr);
    EXPECT_EQ(ShapeFile::FromBytes("AutoCAD-86 shapes V1.0\r\n\x1A"), nullptr);
    const std::string whole = FileOf({kSquare, kSquare});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto file = ShapeFile::FromBytes(whole.substr(0, length));
        Path path;
        EXPECT_TRUE(file == nullptr || AppendShape(*file, 1, path) || path.Empty());
    }
}

TEST(ShapeEntitiesTest, DrawCommonSymbols)
{
    SmallDrawing drawing;
    drawing.entities = "0 SHAPE | 8 0 | 10 10 | 20 10 | 30 0 | 40 2 | 2 BOX |"
                       "0 SHAPE | 8 0 | 10 50 | 20 50 | 30 0 | 40 2 | 2 ZIG | 50 90";
    EXPECT_EQ(LinesOf(drawing),
              (Lines{"stroke 000000 0.25 box 10 8 14 12", "stroke 000000 0.25 m 50 50 l 48 52 l 50 54"}));
}

TEST(ShapeEntitiesTest, ReportUnknownOnes)
{
    SmallDrawing drawing;
    drawing.entities = "0 SHAPE | 8 0 | 10 10 | 20 10 | 30 0 | 40 2 | 2 MY-OWN";
    const Drawn drawn = Render(drawing);
    EXPECT_EQ(drawn.notDrawn, Lines{"SHAPE 0 1"});
    EXPECT_EQ(drawn.remarks, Lines{"a shape whose file is missing left out 1"});
}

/// An environment variable for as long as a test runs.
class Variable {
public:
    Variable(const char* name, const std::string& value) : m_name(name)
    {
        if (const char* former = std::getenv(name)) {
            m_former = former;
        }
        setenv(name, value.c_str(), 1);
    }
    ~Variable() { m_former ? setenv(m_name, m_former->c_str(), 1) : unsetenv(m_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_former;
};

TEST(ShapeEntitiesTest, ComeFromTheFoldersThatFontsComeFrom)
{
    const PictureFolder home;
    const Variable config("XDG_CONFIG_HOME", home.Path());
    home.Write("sheetmaker-pdf/fonts/office/Mine.SHX", FileOf({kSquare}));
    for (const char* named : {"mine.shx", "MINE", "C:\\fonts\\mine.shp"}) {
        SCOPED_TRACE(named);
        SmallDrawing drawing;
        drawing.styles = std::string("0 STYLE | 2  | 70 1 | 40 0 | 41 1 | 3 ") + named;
        drawing.entities = "0 SHAPE | 8 0 | 10 10 | 20 10 | 30 0 | 40 2 | 2 SQ";
        EXPECT_EQ(LinesOf(drawing), Lines{"stroke 000000 0.25 m 10 10 l 12 10 l 12 12 l 10 12 l 10 10"});
    }
}

} // namespace
} // namespace sm::render
