// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/StrokeFont.h"

#include "base/files/File.h"
#include "base/files/Paths.h"
#include "fonts/FontNames.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace sm::render {

namespace {

constexpr double kCapital = 9; // font units
constexpr std::size_t kLargestFont = 64'000'000;

/// A file's name as fonts are named: letters, digits and hyphens.
std::string SafeName(const std::string& path)
{
    const std::size_t slash = path.find_last_of(base::kSeparators);
    std::string name;
    for (const char c : path.substr(slash == std::string::npos ? 0 : slash + 1)) {
        const bool kept = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
        if (c == '.' || name.size() >= 60) {
            break;
        }
        name += kept ? c : '-';
    }
    return name.empty() ? "strokes" : name;
}

StrokeGlyph Box()
{
    StrokeGlyph box;
    box.path.MoveTo({0.1, 0});
    for (const Vec2 corner : {Vec2{0.7, 0}, Vec2{0.7, 1}, Vec2{0.1, 1}, Vec2{0.1, 0}}) {
        box.path.LineTo(corner);
    }
    box.advance = 0.9;
    return box;
}

} // namespace

std::unique_ptr<StrokeFont> StrokeFont::Open(const std::string& path)
{
    if (EndingOf(path) == ".shx") {
        return FromShapes(ShapeFile::Open(path), SafeName(path));
    }
    std::optional<std::string> text = base::ReadRegularFile(path, kLargestFont);
    return text ? FromText(std::move(*text), SafeName(path)) : nullptr;
}

std::unique_ptr<StrokeFont> StrokeFont::OpenBig(const std::string& path, const std::string& codePage)
{
    return FromBigFont(ShapeFile::Open(path), codePage, SafeName(path));
}

std::unique_ptr<StrokeFont> StrokeFont::FromText(std::string text, std::string name)
{
    auto font = std::make_unique<StrokeFont>();
    font->m_text = std::move(text);
    font->m_name = std::move(name);
    return font->Index() ? std::move(font) : nullptr;
}

const StrokeFont& StrokeFont::Boxes()
{
    static const StrokeFont kBoxes;
    return kBoxes;
}

const StrokeGlyph& StrokeFont::At(std::uint32_t glyph) const
{
    static const StrokeGlyph kBox = Box();
    const StrokeGlyph* found = glyph != kMissing ? Find(glyph) : nullptr;
    return found != nullptr ? *found : kBox;
}

std::uint16_t StrokeFont::Advance(std::uint32_t glyph) const
{
    return static_cast<std::uint16_t>(
        std::clamp(std::round(At(glyph).advance * kCapHeight * UnitsPerEm()), 0.0, 65535.0));
}

void StrokeFont::Outline(std::uint32_t glyph, Path& out) const
{
    out = At(glyph).path;
    for (Vec2& point : out.points) {
        point = point * kCapHeight;
    }
}

const StrokeGlyph* StrokeFont::Find(char32_t character) const
{
    if (const auto known = m_glyphs.find(character); known != m_glyphs.end()) {
        return &known->second;
    }
    if (m_shapes) {
        return FindShape(character);
    }
    const bool blank = character == U' ' || character == 0xA0;
    const auto section = m_sections.find(character);
    if (section == m_sections.end() && !blank) {
        return nullptr;
    }
    StrokeGlyph& glyph = m_glyphs[character];
    if (section != m_sections.end()) {
        std::size_t read = 0;
        ReadSection(section->second, glyph, 0, read);
    }
    SetWidth(character, glyph);
    for (Vec2& point : glyph.path.points) {
        point = point * (1 / kCapital);
    }
    return &glyph;
}

double StrokeFont::LetterWidth() const
{
    const StrokeGlyph* glyph = Find(U'H');
    return glyph != nullptr ? glyph->advance - glyph->gap : 0;
}

double StrokeFont::LetterGap() const
{
    const StrokeGlyph* glyph = Find(U'H');
    return glyph != nullptr ? glyph->gap : 0;
}

const StrokeGlyph& StrokeFont::Adopt(char32_t character, StrokeGlyph glyph)
{
    return m_glyphs[character] = std::move(glyph);
}

void StrokeFont::SetMetrics(const StrokeMetrics& metrics, double width)
{
    const double unit = kCapital / width;
    m_letterSpacing = metrics.gap ? *metrics.gap * unit : m_letterSpacing;
    m_wordSpacing = metrics.space ? *metrics.space * unit : m_wordSpacing;
    for (const auto& [character, advance] : metrics.advances) {
        m_advances[character] = advance * unit;
    }
}

/// Letters are fitted into the width laid down for them; what is much narrower is put in its middle.
void StrokeFont::SetWidth(char32_t character, StrokeGlyph& glyph) const
{
    double right = 0;
    for (const Vec2 point : glyph.path.points) {
        right = std::max(right, point.x);
    }
    const bool blank = glyph.path.Empty();
    const auto known = m_advances.find(character);
    const double advance = known != m_advances.end() ? known->second : blank ? m_wordSpacing : right + m_letterSpacing;
    glyph.advance = advance / kCapital;
    glyph.gap = blank ? 0 : m_letterSpacing / kCapital;
    const double room = advance - m_letterSpacing;
    if (known == m_advances.end() || blank || room < 0) {
        return;
    }
    const double wider = right > 0 ? room / right : 0;
    const bool fits = wider > 0.5 && wider < 1.7;
    glyph.gap += fits ? 0 : (room - right) / 2 / kCapital;
    for (Vec2& point : glyph.path.points) {
        point.x = fits ? point.x * wider : point.x + (room - right) / 2;
    }
}

} // namespace sm::render
