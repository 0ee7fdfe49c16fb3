// SPDX-License-Identifier: GPL-3.0-or-later
// Fonts of strokes: compiled shapes, letters as text, and the table of fonts that stand for others.
#include "fonts/FontMap.h"
#include "fonts/StrokeFont.h"
#include "fuzz/Target.h"
#include "fuzz/targets/Targets.h"
#include "shapes/ShapePen.h"

#include <cmath>
#include <optional>

namespace sm::fuzz {

namespace {

using namespace std::string_literals;

/// Work that an input may ask for: a shape may take twenty thousand steps.
constexpr unsigned kMostShapes = 6;

std::string ShortWord(std::size_t value)
{
    return {static_cast<char>(value & 0xFFU), static_cast<char>(value >> 8U)};
}

void DrawShapes(const render::ShapeFile& file, std::string_view input)
{
    unsigned drawn = 0;
    for (std::size_t at = 0; at + 1 < input.size() && drawn < kMostShapes; ++at) {
        const auto number = static_cast<std::uint16_t>(static_cast<unsigned char>(input[at]) |
                                                       static_cast<unsigned char>(input[at + 1]) << 8U);
        if (!file.Has(number) || file.Codes(number).size() > input.size())
            continue;
        render::Path path;
        (void)render::AppendShape(file, number, path);
        ++drawn;
    }
    (void)file.NumberOf("BOX");
    (void)file.Cell();
}

void ReadLetters(const render::StrokeFont& font)
{
    (void)font.LetterWidth();
    for (const char32_t character : {U'A', U'H', U' ', U'\x416', U'\x4E00', U'\xB0'}) {
        const render::StrokeGlyph* glyph = font.Find(character);
        (void)font.Advance(character);
        if (glyph != nullptr && glyph->path.verbs.empty() && !glyph->path.points.empty())
            Fail("points belong to steps of a path");
    }
}

} // namespace

/// As shapes, as letters, and as a big font of one code page.
void FuzzShx(std::string_view input)
{
    auto file = render::ShapeFile::FromBytes(std::string(input));
    if (file == nullptr)
        return;
    DrawShapes(*file, input);
    const bool big = file->IsBigFont();
    const auto font = big ? render::StrokeFont::FromBigFont(std::move(file), "ANSI_936")
                          : render::StrokeFont::FromShapes(std::move(file));
    if (font != nullptr)
        ReadLetters(*font);
}

void FuzzStrokes(std::string_view input)
{
    if (const auto font = render::StrokeFont::FromText(std::string(input)))
        ReadLetters(*font);
}

void FuzzFontMap(std::string_view input)
{
    render::FontMap map;
    map.Add(std::string(input));
    const auto check = [](const std::optional<render::FontChoices>& choices) {
        if (choices)
            for (const render::FontChoice& choice : *choices)
                if (!(choice.width > 0 && std::isfinite(choice.width)))
                    Fail("letters are as wide as something");
    };
    check(map.File("arial.ttf"));
    check(map.Family("Arial", true, false));
    if (const render::StrokeChoice* stroke = map.Stroke("txt.shx"))
        (void)stroke->metrics.IsFile();
    (void)map.Fallbacks();
}

Inputs ShxSeeds()
{
    const std::vector<std::pair<unsigned, std::string>> letters{
        {0, "Own\0\6\2\2\0\0\0"s},
        {'I', "\0\2\x10\1\x64\2\x30\x6C\0"s},
        {'H', "BOX\0\1\x64\3\2\4\4\5\x10\6\x0A\5\x12\x0B\1\2\3\4\5\0"s},
        {' ', "\0\2\x50\0"s},
        {'A', "\0\7I\x08\5\xFB\x09\1\2\3\4\0\0\x0C\5\5\x40\x0D\1\1\x20\0\0\x0E\1\x10\0"s},
        {0x416, "\0\1\x30\2\x10\0"s}};
    std::string unifont = "AutoCAD-86 unifont 1.0\r\n\x1A" + ShortWord(letters.size()), index, shapes;
    for (const auto& [number, bytes] : letters) {
        unifont += ShortWord(number) + ShortWord(bytes.size()) + bytes;
        index += ShortWord(number) + ShortWord(bytes.size());
        shapes += bytes;
    }
    std::string big = "AutoCAD-86 bigfont 1.0\r\n\x1A" + ShortWord(8) + ShortWord(3) + ShortWord(1) + ShortWord(0xB0) +
                      ShortWord(0xF7);
    const std::size_t first = big.size() + 3 * 8;
    const std::string name = "Own\0\x10\0\2\x10\0"s, one = "\0\1\x64\2\x30\0"s;
    big += ShortWord(0) + ShortWord(name.size()) + ShortWord(first) + ShortWord(0);
    big += ShortWord(0xD2BB) + ShortWord(one.size()) + ShortWord(first + name.size()) + ShortWord(0);
    big += ShortWord(0xB0A1) + ShortWord(one.size()) + ShortWord(first + name.size()) + ShortWord(0) + name + one;
    return {unifont,
            "AutoCAD-86 shapes 1.0\r\n\x1A" + ShortWord(0) + ShortWord(0x416) + ShortWord(letters.size()) + index +
                shapes,
            big};
}

Inputs StrokeSeeds()
{
    return {
        "# Format: LibreCAD Font 1\n# LetterSpacing: 3\n# WordSpacing: 6.75\n\n[0041] A\n0,0;3,9;6,0\n1,3;5,3,A0.5\n\n"
        "[0048] H\n0,0;0,9\n6,0;6,9\nC0041\n\n[0416] x\n0,0,A1;2,2\n"};
}

Inputs FontMapSeeds()
{
    return {
        "# ours\nfile arial.ttf \"Liberation Sans.ttf\"*0.961|Other.ttf\nfamily Arial R.ttf B.ttf I.ttf BI.ttf\n"
        "stroke txt txt.lff 1 0.29 0.95\nadvance txt 0.667 I1\nfallback DejaVuSans.ttf\nstrokefallback unicode.lff\n"};
}

} // namespace sm::fuzz
