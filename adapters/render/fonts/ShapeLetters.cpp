// Letters of compiled shape files. The file's first shape says how high capitals are ("above") and how deep letters
// hang below the base line; a letter ends where the next one begins.
#include "fonts/StrokeFont.h"
#include "shapes/ShapePen.h"

#include <algorithm>
#include <array>

namespace sm::render {

namespace {

/// The numbers under which a font may keep a character: Unicode ones in unifonts, else bytes of its code page.
std::array<std::uint16_t, 2> NumbersOf(char32_t character, bool unifont)
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
    if (head.size() < 3 || head[0] == 0) {
        return nullptr;
    }
    auto font = std::make_unique<StrokeFont>();
    font->m_above = static_cast<std::uint8_t>(head[0]);
    font->m_shapes = std::move(shapes);
    font->m_name = std::move(name);
    return font;
}

bool StrokeFont::ReadShape(char32_t character, StrokeGlyph& glyph) const
{
    for (const std::uint16_t number : NumbersOf(character, m_shapes->IsUnifont())) {
        Vec2 end;
        if (number == 0 || !AppendShape(*m_shapes, number, glyph.path, end)) {
            continue;
        }
        double right = 0;
        for (Vec2& point : glyph.path.points) {
            point = point * (1 / m_above);
            right = std::max(right, point.x);
        }
        glyph.advance = std::max(0.0, end.x / m_above);
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
