// SPDX-License-Identifier: GPL-3.0-or-later
// TrueType subsets: as the publisher reads them, and as the plotter makes them.
#include "fonts/SfntGlyphs.h"
#include "fonts/TrueTypeSubset.h"
#include "fuzz/Target.h"
#include "fuzz/targets/Targets.h"

namespace sm::fuzz {

namespace {

using namespace std::string_literals;

/// A font whose glyphs are what the input says: a byte of points, then a byte for each point's place and kind.
class InputFace final : public render::FontFace {
public:
    explicit InputFace(std::string_view input) : m_input(input) {}
    [[nodiscard]] const std::string& Name() const override { return m_name; }
    [[nodiscard]] std::uint16_t UnitsPerEm() const override { return Word(0); }
    [[nodiscard]] std::uint16_t Advance(std::uint32_t glyph) const override { return Word(glyph * 7U); }
    [[nodiscard]] const render::GlyphContours& Contours(std::uint32_t glyph) const override
    {
        render::GlyphContours& out = m_contours;
        out = {};
        std::size_t at = glyph * 11U;
        for (unsigned left = At(at++) % 40U; left > 0; --left, at += 5) {
            out.points.push_back(
                {static_cast<std::int16_t>(Word(at)), static_cast<std::int16_t>(Word(at + 2)), (At(at + 4) & 1U) != 0});
            if (left == 1 || (At(at + 4) & 6U) == 6)
                out.ends.push_back(static_cast<std::uint16_t>(out.points.size() - 1));
        }
        return out;
    }
    void Outline(std::uint32_t, render::Path&) const override {}

private:
    [[nodiscard]] unsigned At(std::size_t at) const
    {
        return m_input.empty() ? 0U : static_cast<unsigned char>(m_input[at % m_input.size()]);
    }
    [[nodiscard]] std::uint16_t Word(std::size_t at) const
    {
        return static_cast<std::uint16_t>(At(at) | At(at + 1) << 8U);
    }
    std::string m_name = "Input";
    mutable render::GlyphContours m_contours;
    std::string_view m_input;
};

} // namespace

void FuzzSfnt(std::string_view input)
{
    const auto subset = publisher::ReadSfntSubset(input);
    if (!subset)
        return;
    publisher::SfntFacts facts;
    const auto again = publisher::ReadSfntSubset(publisher::WriteSfntSubset(*subset, facts));
    if (!again || again->glyphs != subset->glyphs)
        Fail("what is written of a subset is read again");
}

void FuzzSubset(std::string_view input)
{
    const InputFace face(input);
    std::vector<std::uint32_t> glyphs;
    for (std::uint32_t i = 0; i < 1 + input.size() % 12; ++i)
        glyphs.push_back(i * 3);
    std::string font;
    for (const std::string& piece : plotter::MakeTrueTypeSubset(face, glyphs)) {
        if (piece.size() % 2 != 0 || piece.size() >= 65536)
            Fail("the strings of a font have an even length below 64 K");
        font += piece;
    }
    const auto subset = publisher::ReadSfntSubset(font);
    if (!subset || subset->glyphs.size() != glyphs.size() + 1)
        Fail("the publisher reads the plotter's subsets");
}

Inputs SfntSeeds()
{
    const std::string triangle = "\0\1\0\0\0\0\0\x64\0\x64\0\2\0\0\x37\x37\x37\1\x64\x64\0\0\x64\0"s;
    publisher::SfntFacts facts;
    return {publisher::WriteSfntSubset({1000, {{500, 0, ""}, {600, 1, triangle}, {250, 0, ""}}}, facts)};
}

Inputs SubsetSeeds()
{
    return {"", "\x09\x01\x00\x05\x07\x01\x00\xFF\x7F\x07\x06\x10\x20", std::string(60, '\x27')};
}

} // namespace sm::fuzz
