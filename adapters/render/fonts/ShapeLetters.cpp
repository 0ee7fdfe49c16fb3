// SPDX-License-Identifier: GPL-3.0-or-later
// Letters of compiled shape files. The file's first shape says how high capitals are ("above") and how deep letters
// hang below the base line; a letter ends where the next one begins.
#include "fonts/StrokeFont.h"
#include "shapes/ShapePen.h"

#include <algorithm>
#include <array>

namespace sm::render {

namespace {

/// The numbers under which a font may keep a character: Unicode ones in unifonts, else bytes of its code page.
std::array<std::uint16_t, 2> OwnNumbersOf(char32_t character, bool unifont)
{
    const auto number = static_cast<std::uint16_t>(character < 0x10000 ? character : 0);
    switch (character) {
    case 0xA0:
        return {32, 0};
    case 0xB0: // degree, plus-minus and diameter have places of their own
        return {127, number};
    case 0xB1:
        return {128, number};
    case 0xD8:
    case 0x2300:
    case 0x2205:
        return {129, number};
    default:
        break;
    }
    if (!unifont && character >= 0x410 && character < 0x450) {
        return {static_cast<std::uint16_t>(character - 0x410 + 0xC0), 0}; // as in code page 1251
    }
    return {number, 0};
}

} // namespace

std::unique_ptr<StrokeFont> StrokeFont::FromShapes(std::unique_ptr<ShapeFile> shapes, std::string name)
{
    const std::string_view head = shapes ? shapes->Codes(0) : std::string_view();
    if (head.size() < 3 || head[0] == 0 || shapes->IsBigFont()) {
        return nullptr;
    }
    auto font = std::make_unique<StrokeFont>();
    font->m_above = static_cast<std::uint8_t>(head[0]);
    font->m_shapes = std::move(shapes);
    font->m_name = std::move(name);
    return font;
}

std::unique_ptr<StrokeFont> StrokeFont::FromBigFont(std::unique_ptr<ShapeFile> shapes, const std::string& codePage,
                                                    std::string name)
{
    if (!shapes || !shapes->IsBigFont() || shapes->Cell().y <= 0) {
        return nullptr;
    }
    auto font = std::make_unique<StrokeFont>();
    font->m_above = shapes->Cell().y;
    font->m_shapes = std::move(shapes);
    font->m_page = drawing::SharedPage(drawing::ConverterName(codePage));
    font->m_name = std::move(name);
    return font;
}

/// A big font has the characters of two bytes, all others stand in the font that it belongs to.
std::array<std::uint16_t, 2> StrokeFont::NumbersOf(char32_t character) const
{
    if (!m_page) {
        return OwnNumbersOf(character, m_shapes->IsUnifont());
    }
    const std::string pair = m_page->Encode(character).value_or("");
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(pair[i]); };
    return {pair.size() == 2 ? static_cast<std::uint16_t>(byte(0) << 8 | byte(1)) : std::uint16_t{0}, 0};
}

bool StrokeFont::ReadShape(char32_t character, StrokeGlyph& glyph) const
{
    for (const std::uint16_t number : NumbersOf(character)) {
        Vec2 end;
        if (number == 0 || !AppendShape(*m_shapes, number, glyph.path, end)) {
            continue;
        }
        double right = 0;
        for (Vec2& point : glyph.path.points) {
            point = point * (1 / m_above);
            right = std::max(right, point.x);
        }
        const double own = m_page && end.x <= 0 ? m_shapes->Cell().x : end.x; // some leave the step to the cell
        glyph.advance = std::max(0.0, own / m_above);
        glyph.gap = glyph.path.Empty() ? 0 : std::max(0.0, glyph.advance - right);
        return true;
    }
    return false;
}

const StrokeGlyph* StrokeFont::FindShape(char32_t character) const
{
    StrokeGlyph glyph;
    return ReadShape(character, glyph) ? &(m_glyphs[character] = std::move(glyph)) : nullptr;
}

} // namespace sm::render
