// SPDX-License-Identifier: GPL-3.0-or-later
#include "OwnPath.h"
#include "drawing/entities/Texts.h"
#include "fonts/StrokeFont.h"
#include "plotter/FakeDrawing.h"
#include "render/TextLayout.h"
#include "render_text/ShapeBytes.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace sm::render {
namespace {

/// A unifont: capitals 6 high. "I" is a bar from (1, 0) to (1, 6), its advance 4; a blank advances 5; U+416 is a dash.
std::vector<Shape> Letters()
{
    using namespace std::string_literals;
    return {{0, "Own\0\6\2\2\0\0\0"s},
            {'I', "\0\2\x10\1\x64\2\x30\x6C\0"s},
            {' ', "\0\2\x50\0"s},
            {127, "\0\1\x10\2\x10\0"s},
            {0x416, "\0\1\x30\2\x10\0"s}};
}

std::string Unifont()
{
    std::string bytes = "AutoCAD-86 unifont 1.0\r\n\x1A" + Word(Letters().size());
    for (const Shape& shape : Letters()) {
        bytes += Word(shape.number) + Word(shape.bytes.size()) + shape.bytes;
    }
    return bytes;
}

/// The same letters by bytes of a code page.
std::string ShapeFont()
{
    std::string index, shapes;
    for (const Shape& shape : Letters()) {
        const std::uint16_t number = shape.number == 0x416 ? 0xC6 : shape.number;
        index += Word(number) + Word(shape.bytes.size());
        shapes += shape.bytes;
    }
    return "AutoCAD-86 shapes 1.0\r\n\x1A" + Word(0) + Word(0xC6) + Word(Letters().size()) + index + shapes;
}

TEST(ShapeFont, LettersEndWhereTheirPenStops)
{
    for (const std::string& bytes : {Unifont(), ShapeFont()}) {
        const auto font = StrokeFont::FromShapes(ShapeFile::FromBytes(bytes));
        ASSERT_NE(font, nullptr);
        struct Row {
            char32_t character;
            double advance, right, top;
        };
        for (const Row& row : std::vector<Row>{{U'I', 4 / 6.0, 1 / 6.0, 1},
                                               {U' ', 5 / 6.0, 0, 0},
                                               {0xB0, 2 / 6.0, 1 / 6.0, 0},
                                               {0x416, 4 / 6.0, 3 / 6.0, 0}}) {
            SCOPED_TRACE(static_cast<unsigned>(row.character));
            const StrokeGlyph* glyph = font->Find(row.character);
            ASSERT_NE(glyph, nullptr);
            Box2 box;
            box.Add(Vec2{});
            for (const Vec2 point : glyph->path.points) {
                box.Add(point);
            }
            EXPECT_NEAR(glyph->advance, row.advance, 1e-9);
            EXPECT_NEAR(box.max.x, row.right, 1e-9);
            EXPECT_NEAR(box.max.y, row.top, 1e-9);
        }
        EXPECT_EQ(font->Find(U'Q'), nullptr);
    }
}

TEST(StrokeFont, LettersThatCopyThemselvesEnd)
{
    std::string text = "[41] A\n0,0;3,9\n";
    for (int i = 0; i < 40; ++i) {
        text += "C41\n"; // followed four deep, 40 to the fifth strokes
    }
    const auto font = StrokeFont::FromText(text);
    ASSERT_NE(font, nullptr);
    const StrokeGlyph* glyph = font->Find(U'A');
    ASSERT_NE(glyph, nullptr);
    constexpr std::size_t kMostRead = 200'000, kLine = 9; // bytes
    EXPECT_GT(glyph->path.points.size(), 2U);
    EXPECT_LE(glyph->path.points.size(), 2 * kMostRead / kLine);
}

TEST(ShapeFont, ShapesThatAreNoLettersAreNoFont)
{
    EXPECT_EQ(StrokeFont::FromShapes(nullptr), nullptr);
    const std::string shapes = std::string("AutoCAD-86 shapes 1.0\r\n\x1A") + Word(1) + Word(1) + Word(1) + Word(1) +
                               Word(5) + std::string("A\0\1\x10\0", 5);
    ASSERT_NE(ShapeFile::FromBytes(shapes), nullptr);
    EXPECT_EQ(StrokeFont::FromShapes(ShapeFile::FromBytes(shapes)), nullptr);
}

TEST(ShapeFont, TheUsersOwnFileComesBeforeItsSubstitute)
{
    namespace fs = std::filesystem;
    const fs::path folder = OwnPath("shape-font");
    fs::create_directories(folder / "fonts");
    std::ofstream(folder / "fonts" / "ROMANS.SHX", std::ios::binary) << Unifont();
    const auto engine = TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", folder.string()});
    plotter::FakeDrawing drawing;
    drawing::TextStyle style;
    style.fontFile = "romans.shx";
    drawing.styles = {style};
    drawing::TextData text;
    text.text = "I I";
    text.height = 12;
    const LaidText& laid = engine->Lay(drawing, text);
    ASSERT_EQ(laid.glyphs.size(), 1U);
    EXPECT_NEAR(laid.outline.at(1).x, 2 * (4 + 5 + 1), 1e-9);
    EXPECT_TRUE(engine->Substitutions().empty());
    fs::remove_all(folder);
}

} // namespace
} // namespace sm::render
