// SPDX-License-Identifier: GPL-3.0-or-later
// Big fonts: characters of two bytes beside a stroke font.
#include "OwnPath.h"
#include "TextFixture.h"
#include "fonts/StrokeFont.h"
#include "render_text/ShapeBytes.h"

#include <filesystem>
#include <fstream>

namespace sm::render {
namespace {

/// Of code page 936, characters 8 high in a cell 8 wide. U+65BD (CA A9) is a bar over its height at x = 2 and steps 10
/// on; U+5DE5 (B9 A4) shows shape 1, a dash from (0, 0) to (8, 8), from (2, 4) on, 4 wide and 2 high, and leaves the
/// step to the cell.
std::string BigFont(bool turned, std::string_view head)
{
    using namespace std::string_literals;
    const std::vector<Shape> shapes{{0, "Own\0"s + std::string(head)},
                                    {1, "\0\1\x08\x08\x08\0"s},
                                    {0xCAA9, "\0\2\x20\1\x84\2\x8C\x80\0"s},
                                    {0xB9A4, "\0\7\0\0\1\2\4\4\2\0"s}};
    const std::string start =
        "AutoCAD-86 bigfont 1.0\r\n\x1A" + Word(8) + Word(shapes.size()) + Word(1) + Word(0xB0) + Word(0xF7);
    std::string index, data;
    for (const Shape& shape : shapes) {
        const std::size_t place = start.size() + 8 * shapes.size() + data.size();
        const std::string number = Word(shape.number);
        index += (turned ? std::string(number.rbegin(), number.rend()) : number) + Word(shape.bytes.size()) +
                 Word(place) + Word(0);
        data += shape.bytes;
    }
    return start + index + data;
}

const std::string_view kHead("\x08\0\0\x08\0", 5);

Box2 BoxOf(const StrokeGlyph& glyph)
{
    Box2 box;
    for (const Vec2 point : glyph.path.points) {
        box.Add(point);
    }
    return box;
}

TEST(BigFont, CharactersAreFoundByTheirPairOfBytes)
{
    struct Row {
        char32_t character;
        double left, bottom, right, top, advance; ///< eighths of the height
    };
    for (const bool turned : {false, true}) {
        SCOPED_TRACE(turned);
        // "\1" isn't turned into a pair: only what a range leads is.
        const auto font = StrokeFont::FromBigFont(ShapeFile::FromBytes(BigFont(false, kHead)), "ANSI_936");
        ASSERT_NE(font, nullptr);
        for (const Row& row : {Row{U'施', 2, 0, 2, 8, 10}, Row{U'工', 2, 4, 6, 6, 8}}) {
            const StrokeGlyph* glyph = font->Find(row.character);
            ASSERT_NE(glyph, nullptr);
            const Box2 box = BoxOf(*glyph);
            EXPECT_NEAR(box.min.x, row.left / 8, 1e-9);
            EXPECT_NEAR(box.min.y, row.bottom / 8, 1e-9);
            EXPECT_NEAR(box.max.x, row.right / 8, 1e-9);
            EXPECT_NEAR(box.max.y, row.top / 8, 1e-9);
            EXPECT_NEAR(glyph->advance, row.advance / 8, 1e-9);
        }
        EXPECT_EQ(font->Find(U'A'), nullptr);
        EXPECT_EQ(font->Find(U'图'), nullptr);
    }
}

TEST(BigFont, NumbersMayHaveTheirBytesTurned)
{
    const auto file = ShapeFile::FromBytes(BigFont(true, kHead));
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->Has(0xCAA9));
    EXPECT_TRUE(file->Has(0xB9A4));
}

TEST(BigFont, HeightAndWidthStandInEitherForm)
{
    const struct {
        std::string_view head;
        Vec2 cell;
    } rows[] = {{kHead, {8, 8}},
                {std::string_view("\x10\0\2\x0C\0", 5), {12, 16}},
                {std::string_view("\x08\2\0\0", 4), {8, 8}},
                {std::string_view("\0\x40\2\0", 4), {64, 64}}};
    for (const auto& row : rows) {
        const auto file = ShapeFile::FromBytes(BigFont(false, row.head));
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(file->Cell(), row.cell);
    }
    EXPECT_EQ(StrokeFont::FromShapes(ShapeFile::FromBytes(BigFont(false, kHead))), nullptr) << "no font by itself";
    EXPECT_EQ(StrokeFont::FromBigFont(nullptr, "ANSI_936"), nullptr);
}

class BigFontTextTest : public TextFixture {
protected:
    BigFontTextTest()
    {
        namespace fs = std::filesystem;
        fs::create_directories(m_folder / "fonts");
        std::ofstream(m_folder / "fonts" / "gbown.shx", std::ios::binary) << BigFont(false, kHead);
        engine = TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", m_folder.string()});
        drawing.styles[0].bigFontFile = "GBOWN";
        data.text = "A施工图";
        data.height = 8;
    }
    ~BigFontTextTest() override { std::filesystem::remove_all(m_folder); }

    const std::filesystem::path m_folder = OwnPath("big-font");
    drawing::TextData data;
};

TEST_F(BigFontTextTest, TextsTakeTheirTwoByteCharactersFromIt)
{
    const LaidText& laid = engine->Lay(drawing, data);
    ASSERT_EQ(laid.glyphs.size(), 3U);
    EXPECT_EQ(laid.glyphs[0].run.text, "A");
    EXPECT_EQ(laid.glyphs[1].run.text, "施工");
    EXPECT_EQ(laid.glyphs[1].run.font->Name(), "gbown");
    EXPECT_EQ(laid.glyphs[2].run.text, "图") << "an outline font's, which the big font lacks";
    EXPECT_FALSE(laid.glyphs[2].run.font->IsStroked());
    const std::string noted = engine->Substitutions().empty() ? "" : engine->Substitutions()[0];
    EXPECT_EQ(noted.find("big font"), std::string::npos) << noted;
}

TEST_F(BigFontTextTest, ParagraphsNameItBehindAComma)
{
    for (const char* code : {"\\Fromans,gbown;施", "\\FROMANS.SHX,GBOWN.SHX|c0;施"}) {
        SCOPED_TRACE(code);
        const LaidText& laid = engine->Lay(drawing, MText(code));
        ASSERT_EQ(laid.glyphs.size(), 1U);
        EXPECT_EQ(laid.glyphs[0].run.font->Name(), "gbown");
    }
}

TEST_F(BigFontTextTest, OneThatIsMissingIsTold)
{
    drawing.styles[0].bigFontFile = "hztxt.shx";
    const LaidText& laid = engine->Lay(drawing, data);
    ASSERT_EQ(laid.glyphs.size(), 2U);
    EXPECT_EQ(laid.glyphs[1].run.text, "施工图");
    const std::vector<std::string> noted = engine->Substitutions();
    EXPECT_NE(std::find(noted.begin(), noted.end(), "big font hztxt.shx drawn with outline fonts (style Standard)"),
              noted.end());
}

} // namespace
} // namespace sm::render
