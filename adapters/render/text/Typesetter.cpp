// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/Typesetter.h"

#include "base/Units.h"
#include "base/text/Utf8.h"
#include "fonts/Unicode.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

double Shear(const TypeStyle& style)
{
    const double degrees = std::clamp(style.oblique, -85.0, 85.0);
    return degrees == 0 ? 0 : std::tan(base::RadiansOf(degrees));
}

/// From units that are `unit` of the style's height to drawing units.
Matrix2 ScaleOf(const TypeStyle& style, double unit, double wider, Vec2 origin)
{
    const double up = style.height * unit;
    return {up * style.width * wider, 0, up * Shear(style), up, origin.x, origin.y};
}

/// Characters of a stroke font's big font fill the height of the text from its base line on; an outline font that
/// stands for it has them in its square.
bool SquareIn(const Font& font, const GlyphSource& source, char32_t c)
{
    return font.stroke != nullptr && source.face != nullptr && IsEastAsian(c);
}

double StrokeWidth(const TypeStyle& style)
{
    return style.font != nullptr ? style.font->strokeWidth : 1;
}

} // namespace

double Typesetter::Measure(std::string_view text, const TypeStyle& style)
{
    return Run({text, style, {}, false});
}

double Typesetter::Set(std::string_view text, const TypeStyle& style, Vec2 pen)
{
    const Job job{text, style, pen, true};
    const double width = Run(job);
    AddRules(job, width);
    return width;
}

double Typesetter::Run(const Job& job)
{
    if (!RunsBothWays(job.text)) {
        return RunPart(job, {0, job.text.size(), false}, 0);
    }
    return RunBothWays(job);
}

/// Parts stand as they are seen and come as they are read, so that the text is found.
double Typesetter::RunBothWays(const Job& job)
{
    const Job measured{job.text, job.style, job.pen, false};
    std::vector<std::pair<BidiRun, double>> placed; // each with its start
    double x = 0;
    const auto place = [&](const BidiRun& part) {
        placed.emplace_back(part, x);
        x = RunPart(measured, part, x);
    };
    for (const BidiRun& run : VisualRuns(job.text)) {
        if (run.rightToLeft) {
            const std::vector<BidiRun> parts = PartsOf(job, run);
            std::for_each(parts.rbegin(), parts.rend(), place);
        } else {
            place(run);
        }
    }
    std::sort(placed.begin(), placed.end(), [](const auto& a, const auto& b) { return a.first.from < b.first.from; });
    for (const auto& [part, start] : placed) {
        if (job.shows) {
            RunPart(job, part, start);
        }
    }
    return x;
}

/// A run from right to left by the fonts it takes: outlines of one font are shaped together, strokes stand alone.
std::vector<BidiRun> Typesetter::PartsOf(const Job& job, const BidiRun& run)
{
    static const Font kNone;
    const Font& font = job.style.font != nullptr ? *job.style.font : kNone;
    std::vector<BidiRun> parts;
    const OutlineFace* last = nullptr;
    for (std::size_t at = run.from; at < run.to;) {
        const std::size_t from = at;
        const OutlineFace* const face = m_fonts.Find(font, base::NextCharacter(job.text, at)).face;
        if (parts.empty() || face == nullptr || face != last) {
            parts.push_back({from, from, true});
        }
        parts.back().to = at;
        last = face;
    }
    return parts;
}

/// Sets a part of the text from `x` on, and returns where it ends.
double Typesetter::RunPart(const Job& job, const BidiRun& part, double x)
{
    static const Font kNone;
    const Font& font = job.style.font != nullptr ? *job.style.font : kNone;
    m_segment = {};
    for (std::size_t at = part.from; at < part.to;) {
        const std::size_t from = at;
        const char32_t c = base::NextCharacter(job.text, at);
        if (c < 32 || (c >= 0x200B && c <= 0x200F) || c == 0xFEFF) {
            continue; // controls and marks of direction have no glyph
        }
        const GlyphSource source = m_fonts.Find(font, c);
        const bool letter = (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'z') || c >= 0xC0;
        const bool complex =
            source.face != nullptr && (part.rightToLeft || IsComplex(c) || (m_segment.complex && !letter));
        const StrokeFont* strokes = source.face != nullptr         ? nullptr
                                    : source.strokeFont != nullptr ? source.strokeFont
                                                                   : &StrokeFont::Boxes();
        const bool square = SquareIn(font, source, c);
        const bool goesOn = m_segment.open && m_segment.face == source.face && m_segment.strokes == strokes &&
                            m_segment.complex == complex && m_segment.square == square;
        if (!goesOn) {
            x += EndSegment(job);
            m_segment = {source.face, strokes, complex, part.rightToLeft, square, true, x, from, from};
            m_advance = 0;
            m_glyphs.clear();
        }
        m_segment.to = at;
        if (source.face == nullptr) {
            AddStroke(job, source, from);
        } else if (!complex) {
            m_glyphs.push_back({source.glyph, static_cast<std::uint32_t>(from - m_segment.from), {m_advance, 0}});
            m_advance += job.style.tracking * source.face->Advance(source.glyph) / source.face->UnitsPerEm();
        }
    }
    return x + EndSegment(job);
}

double Typesetter::EndSegment(const Job& job)
{
    if (!m_segment.open) {
        return 0;
    }
    m_segment.open = false;
    return m_segment.face != nullptr ? EndOutlines(job) : EndStrokes(job);
}

double Typesetter::EndOutlines(const Job& job)
{
    const std::string_view text = job.text.substr(m_segment.from, m_segment.to - m_segment.from);
    if (m_segment.complex) {
        m_advance = m_segment.face->Shape(text, m_segment.rightToLeft, m_glyphs);
    }
    const bool own = job.style.font != nullptr && job.style.font->face == m_segment.face;
    const InkSpan ink = m_segment.square ? m_segment.face->Ideographs() : InkSpan{0, m_segment.face->CapHeight()};
    Matrix2 scale = ScaleOf(job.style, 1 / (ink.top - ink.bottom), own ? job.style.font->faceWidth : 1,
                            {job.pen.x + m_segment.start, job.pen.y});
    if (job.shows) {
        const Vec2 lift = scale.ApplyVector({0, -ink.bottom});
        scale.e += lift.x;
        scale.f += lift.y;
        AddPart(job, *m_segment.face, scale);
    }
    return m_advance * scale.a;
}

void Typesetter::AddPart(const Job& job, const FontFace& face, const Matrix2& scale)
{
    GlyphPart& part = m_parts.AddGlyphs();
    part.color = job.style.color;
    part.run.font = &face;
    part.missing = &face == &StrokeFont::Boxes();
    part.run.text = job.text.substr(m_segment.from, m_segment.to - m_segment.from);
    part.run.advance = m_advance;
    part.run.toPaper = scale;
    for (const ShapedGlyph& glyph : m_glyphs) {
        part.run.glyphs.push_back(glyph.glyph);
        part.run.positions.push_back(glyph.position);
        part.run.clusters.push_back(glyph.cluster);
    }
}

void Typesetter::AddStroke(const Job& job, const GlyphSource& source, std::size_t from)
{
    m_glyphs.push_back({source.glyph, static_cast<std::uint32_t>(from - m_segment.from), {m_advance, 0}});
    const StrokeGlyph& glyph =
        source.strokes != nullptr ? *source.strokes : m_segment.strokes->At(StrokeFont::kMissing);
    m_advance += glyph.advance * StrokeFont::kCapHeight * job.style.tracking;
}

double Typesetter::EndStrokes(const Job& job)
{
    const Matrix2 scale = ScaleOf(job.style, 1 / StrokeFont::kCapHeight, StrokeWidth(job.style),
                                  {job.pen.x + m_segment.start, job.pen.y});
    if (job.shows) {
        AddPart(job, *m_segment.strokes, scale);
    }
    return m_advance * scale.a;
}

void Typesetter::AddRules(const Job& job, double width)
{
    const TypeStyle& style = job.style;
    const bool filled = style.font == nullptr || style.font->face != nullptr;
    const struct {
        bool wanted;
        double at; ///< heights above the base line
    } rules[] = {{style.under, -0.2}, {style.over, 1.2}, {style.strike, 0.5}};
    for (const auto& rule : rules) {
        if (!rule.wanted || width == 0) {
            continue;
        }
        const double half = filled ? 0.035 * style.height : 0;
        const double y = job.pen.y + rule.at * style.height;
        RulePart& part = m_parts.AddRule();
        part.color = style.color;
        part.path.MoveTo({job.pen.x, y - half});
        part.path.LineTo({job.pen.x + width, y - half});
        if (filled) {
            part.path.LineTo({job.pen.x + width, y + half});
            part.path.LineTo({job.pen.x, y + half});
            part.path.Close();
        }
    }
}

double Typesetter::Behind(std::string_view text, const TypeStyle& style)
{
    std::size_t at = text.size();
    while (at > 0 && (static_cast<unsigned char>(text[--at]) & 0xC0) == 0x80) {
    }
    if (text.empty() || style.font == nullptr) {
        return 0;
    }
    const GlyphSource last = m_fonts.Find(*style.font, base::NextCharacter(text, at));
    return last.strokes == nullptr ? 0 : last.strokes->gap * style.height * style.width * StrokeWidth(style);
}

double Typesetter::Depth(std::string_view text, const TypeStyle& style)
{
    static const Font kNone;
    const Font& font = style.font != nullptr ? *style.font : kNone;
    double depth = 0;
    Path path;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = base::NextCharacter(text, at);
        const GlyphSource source = m_fonts.Find(font, c);
        double lowest = 0;
        if (source.face != nullptr && !SquareIn(font, source, c)) {
            source.face->Outline(source.glyph, path);
            for (const Vec2 point : path.points) {
                lowest = std::min(lowest, point.y / source.face->CapHeight());
            }
        } else if (source.strokes != nullptr) {
            for (const Vec2 point : source.strokes->path.points) {
                lowest = std::min(lowest, point.y);
            }
        }
        depth = std::max(depth, -lowest);
    }
    return depth > 0.05 ? depth * style.height : 0; // round letters overshoot a little
}

} // namespace sm::render
