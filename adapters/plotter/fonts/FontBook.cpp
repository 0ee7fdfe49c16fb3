// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FontBook.h"

#include "fonts/FontResource.h"

namespace sm::plotter {

namespace {

constexpr std::size_t kGlyphsPerFont = 255;

/// The character when `text` is exactly one of at most 0xFFFF, else 0.
std::uint32_t SingleCharacter(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (text.size() == 1 && byte(0) < 0x80) {
        return byte(0);
    }
    if (text.size() == 2 && byte(0) >= 0xC2 && byte(0) < 0xE0) {
        return (byte(0) & 0x1FU) << 6 | (byte(1) & 0x3FU);
    }
    if (text.size() == 3 && byte(0) >= 0xE0 && byte(0) < 0xF0) {
        return (byte(0) & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
    }
    return 0;
}

} // namespace

GlyphCode FontBook::Visible(const render::FontFace& face, std::uint32_t glyph, std::string_view text)
{
    if (m_lastFamily == nullptr || m_lastFace != &face) {
        m_lastFace = &face;
        m_lastFamily = &m_families[&face];
    }
    return Find(&face, *m_lastFamily, glyph, text);
}

GlyphCode FontBook::Invisible(std::int32_t advance, std::string_view text)
{
    return Find(nullptr, m_families[nullptr], static_cast<std::uint32_t>(advance), text);
}

std::optional<std::size_t> FontBook::CutNumber(const render::FontFace& face, const StrokeCut& cut)
{
    if (m_lastCut < m_cuts.size() && m_cuts[m_lastCut].face == &face && m_cuts[m_lastCut].family.cut == cut) {
        return m_lastCut;
    }
    const auto known = m_cutNumbers.find({&face, cut});
    if (known == m_cutNumbers.end() && m_cuts.size() >= kMostCuts) {
        return std::nullopt;
    }
    if (known != m_cutNumbers.end()) {
        return m_lastCut = known->second;
    }
    m_cuts.emplace_back().face = &face;
    m_cuts.back().family.cut = cut;
    return m_lastCut = m_cutNumbers[{&face, cut}] = m_cuts.size() - 1;
}

GlyphCode FontBook::Stroked(std::size_t cut, std::uint32_t glyph, std::string_view text)
{
    return Find(m_cuts[cut].face, m_cuts[cut].family, glyph, text);
}

double FontBook::StrokedAdvance(std::size_t cut, std::uint32_t glyph) const
{
    return plotter::StrokedAdvance(*m_cuts[cut].face, m_cuts[cut].family.cut, glyph) / 1000;
}

GlyphCode FontBook::Find(const render::FontFace* face, Family& family, std::uint32_t id, std::string_view text)
{
    if (const std::uint32_t character = SingleCharacter(text); character != 0) {
        auto& place = family.singles[static_cast<std::uint64_t>(id) << 32 | character];
        if (place.font == 0) {
            place = Add(face, family, id, text);
        }
        return place;
    }
    auto& place = family.others[{id, std::string(text)}];
    if (place.font == 0) {
        place = Add(face, family, id, text);
    }
    return place;
}

GlyphCode FontBook::Add(const render::FontFace* face, Family& family, std::uint32_t id, std::string_view text)
{
    if (family.open == 0 || m_fonts[family.open - 1U].glyphs.size() >= kGlyphsPerFont) {
        m_fonts.emplace_back().face = face;
        m_fonts.back().cut = family.cut;
        family.open = static_cast<std::uint16_t>(m_fonts.size());
    }
    Font& font = m_fonts[family.open - 1U];
    // An ASCII character keeps its own code where that is free, so that the page stays readable.
    std::uint32_t code = SingleCharacter(text);
    if (code < 32 || code > 126 || font.taken[code]) {
        code = 128;
        while (font.taken[code]) {
            code = code == 255 ? 1 : code + 1;
        }
    }
    font.taken[code] = true;
    font.glyphs.push_back({id, std::string(text), static_cast<std::uint8_t>(code)});
    return {family.open, static_cast<std::uint8_t>(code)};
}

std::string FontBook::Names() const
{
    std::string names;
    for (std::size_t i = 1; i <= m_fonts.size(); ++i) {
        names += (i > 1 ? " F" : "F") + std::to_string(i);
    }
    return names;
}

std::string FontBook::Definitions() const
{
    std::string out;
    for (std::size_t i = 0; i < m_fonts.size(); ++i) {
        out += Definition(m_fonts[i], i + 1);
    }
    return out;
}

std::string FontBook::Definition(const Font& font, std::size_t number)
{
    std::vector<FontGlyph> glyphs;
    glyphs.reserve(font.glyphs.size());
    for (const Glyph& glyph : font.glyphs) {
        glyphs.push_back({glyph.code, glyph.id, glyph.text});
    }
    const std::string name = "F" + std::to_string(number);
    return font.face == nullptr     ? InvisibleFont(name, glyphs)
           : font.face->IsStroked() ? StrokedFont(name, *font.face, font.cut, glyphs)
                                    : VisibleFont(name, *font.face, glyphs);
}

} // namespace sm::plotter
