// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/NumberText.h"
#include "base/text/Utf8.h"
#include "fonts/PenWidth.h"
#include "postscript/PsWriter.h"

#include <algorithm>

namespace sm::plotter {

namespace {

/// Differences of glyph positions below this (em) aren't written.
constexpr double kSamePlace = 0.0006;
/// Glyphs of one string: keeps lines below the 255 characters of the document structuring conventions.
constexpr std::size_t kLongPiece = 80;

/// The glyphs around glyph i that show one cluster together, and the bytes of `run.text` that they stand for.
struct Cluster {
    std::size_t first = 0, last = 0;
    bool rightToLeft = false;
    std::string_view text;
};

Cluster ClusterOf(const render::TextRun& run, std::size_t i)
{
    const std::vector<std::uint32_t>& clusters = run.clusters;
    const std::uint32_t from = clusters[i];
    Cluster cluster{i, i, false, {}};
    while (cluster.first > 0 && clusters[cluster.first - 1] == from) {
        --cluster.first;
    }
    while (cluster.last + 1 < clusters.size() && clusters[cluster.last + 1] == from) {
        ++cluster.last;
    }
    auto to = static_cast<std::uint32_t>(run.text.size());
    if (cluster.last + 1 < clusters.size() && clusters[cluster.last + 1] > from) {
        to = clusters[cluster.last + 1];
    } else {
        for (const std::uint32_t other : clusters) { // right to left, or the last one
            to = other > from && other < to ? other : to;
        }
    }
    cluster.rightToLeft = cluster.first > 0 ? clusters[cluster.first - 1] > from
                                            : cluster.last + 1 < clusters.size() && clusters[cluster.last + 1] < from;
    cluster.text = from < to ? std::string_view(run.text).substr(from, to - from) : std::string_view();
    return cluster;
}

/// The bytes of `run.text` that glyph i stands for: of a cluster of several glyphs each has a character, in reading
/// order, and the last one the rest. Glyphs beyond the characters have an empty text.
std::string_view TextOf(const render::TextRun& run, std::size_t i)
{
    if (i >= run.clusters.size()) {
        return {};
    }
    const Cluster cluster = ClusterOf(run, i);
    const std::size_t order = cluster.rightToLeft ? cluster.last - i : i - cluster.first;
    const bool last = order == cluster.last - cluster.first;
    if (order == 0 && last) {
        return cluster.text;
    }
    std::size_t at = 0, begin = 0;
    for (std::size_t character = 0; character <= order; ++character) {
        begin = at;
        if (at < cluster.text.size()) {
            (void)base::ReadUtf8(cluster.text, at);
        }
    }
    return cluster.text.substr(begin, last ? std::string_view::npos : at - begin);
}

} // namespace

void PsWriter::WritePlace(std::uint16_t font, const render::Matrix2& m, bool moved)
{
    // Glyphs are moved by parts of the size 1 alone, see the procedure TJ.
    const double size = m.a * m_units;
    const bool upright = !moved && m.a == m.d && m.a > 0 && m.b == 0 && m.c == 0;
    const Dot origin = ToDots({m.e, m.f});
    m_body.Append("/F");
    WriteNumber(font, 1);
    WriteNumber(upright ? size : 1, 3);
    Write("Tf");
    if (!upright) {
        for (const double value : {m.a, m.b, m.c, m.d}) {
            WriteNumber(value * m_units, 3);
        }
    }
    WriteNumber(origin.x, 1);
    WriteNumber(origin.y, 1);
    Write(upright ? "Td" : "Tm");
}

double PsWriter::AdvanceOf(const render::TextRun& run, std::size_t i) const
{
    if (m_cut) {
        return m_fonts.StrokedAdvance(*m_cut, run.glyphs[i]);
    }
    if (run.font != nullptr) {
        return static_cast<double>(run.font->Advance(run.glyphs[i])) / run.font->UnitsPerEm();
    }
    const double next = i + 1 < run.positions.size() ? run.positions[i + 1].x : run.advance;
    return std::round((next - run.positions[i].x) * 1000) / 1000;
}

GlyphCode PsWriter::CodeOf(const render::TextRun& run, std::size_t i)
{
    if (m_cut) {
        return m_fonts.Stroked(*m_cut, run.glyphs[i], TextOf(run, i));
    }
    if (run.font != nullptr) {
        return m_fonts.Visible(*run.font, run.glyphs[i], TextOf(run, i));
    }
    return m_fonts.Invisible(static_cast<std::int32_t>(std::lround(AdvanceOf(run, i) * 1000)), TextOf(run, i));
}

void PsWriter::PutString(std::string_view codes)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    const bool plain = std::all_of(codes.begin(), codes.end(),
                                   [](char c) { return c >= 32 && c < 127 && c != '(' && c != ')' && c != '\\'; });
    if (plain) {
        m_shown += '(';
        m_shown += codes;
        m_shown += ')';
        return;
    }
    m_shown += '<';
    for (const char c : codes) {
        m_shown += kDigits[static_cast<unsigned char>(c) >> 4];
        m_shown += kDigits[static_cast<unsigned char>(c) & 0xF];
    }
    m_shown += '>';
}

std::size_t PsWriter::WriteGlyphs(const render::TextRun& run, std::size_t from, std::size_t to)
{
    const std::uint16_t font = CodeOf(run, from).font;
    bool moved = false;
    m_codes.clear();
    m_shown.clear();
    double pen = run.positions[from].x;
    std::size_t i = from;
    for (; i < to && i - from < kLongPiece; ++i) {
        const GlyphCode glyph = CodeOf(run, i);
        if (glyph.font != font) {
            break;
        }
        if (const double gap = run.positions[i].x - pen; std::fabs(gap) > kSamePlace) {
            char number[base::kNumberRoom];
            PutString(m_codes);
            m_codes.clear();
            m_shown.append(number, base::PutDecimal(number, -1000 * gap, 1));
            moved = true;
            pen = run.positions[i].x;
        }
        m_codes += static_cast<char>(glyph.code);
        pen += AdvanceOf(run, i);
    }
    PutString(m_codes);
    render::Matrix2 place = run.toPaper;
    const Vec2 origin = run.toPaper.Apply(run.positions[from]);
    place.e = origin.x;
    place.f = origin.y;
    WritePlace(font, place, moved);
    m_body.Append(moved ? "[" : "");
    m_body.Append(m_shown);
    m_body.Append(moved ? "] TJ\n" : " Tj\n");
    return i;
}

void PsWriter::WriteRun(const render::TextRun& run, std::size_t from, std::size_t to)
{
    const bool hidden = run.invisible || run.font == nullptr;
    while (from < to) {
        m_body.Append(hidden ? "q\nBT\n3 Tr\n" : "BT\n");
        from = WriteGlyphs(run, from, to);
        m_body.Append(hidden ? "ET\nQ\n" : "ET\n");
    }
}

/// Puts the run on a cut of its stroked font, as `m_cutRun` and `m_cut`; false where that can't be.
bool PsWriter::CutRun(const render::TextRun& run)
{
    const double pen = std::max(run.penWidth > 0 ? run.penWidth : kThinnestPen, m_onePen);
    const auto text = CutOf(run.toPaper, pen);
    m_cut = text ? m_fonts.CutNumber(*run.font, text->cut) : std::nullopt;
    if (!m_cut) {
        return false;
    }
    m_cutRun = run;
    m_cutRun.toPaper = text->toPaper;
    for (Vec2& p : m_cutRun.positions) {
        p = {text->width * p.x + text->shear * p.y, p.y};
    }
    return true;
}

/// Draws the glyphs of a stroked font as lines, and leaves text that is found but doesn't show.
void PsWriter::TextAsPaths(const render::TextRun& run)
{
    m_strokes.Clear();
    for (std::size_t i = 0; i < std::min(run.glyphs.size(), run.positions.size()); ++i) {
        run.font->Outline(run.glyphs[i], m_glyph);
        m_strokes.verbs.insert(m_strokes.verbs.end(), m_glyph.verbs.begin(), m_glyph.verbs.end());
        for (const Vec2 p : m_glyph.points) {
            m_strokes.points.push_back(run.toPaper.Apply(p + run.positions[i]));
        }
    }
    Stroke(m_strokes, {run.color, run.penWidth, render::LineCap::Round, render::LineJoin::Round});
    m_cutRun = run;
    m_cutRun.font = nullptr;
    m_cutRun.invisible = true;
    WritePieces(m_cutRun, m_cutRun.positions.size());
}

void PsWriter::Text(const render::TextRun& run)
{
    const std::size_t count =
        run.font == nullptr ? run.positions.size() : std::min(run.glyphs.size(), run.positions.size());
    m_cut.reset();
    m_hasInk = m_hasInk || (count > 0 && !run.invisible);
    if (run.font == nullptr || run.invisible || !run.font->IsStroked()) {
        WritePieces(run, count);
    } else if (CutRun(run)) {
        WritePieces(m_cutRun, count);
        m_cut.reset();
    } else {
        TextAsPaths(run);
    }
}

/// A piece on one base line at a time.
void PsWriter::WritePieces(const render::TextRun& run, std::size_t count)
{
    if (count == 0) {
        return;
    }
    EnterLayer();
    EndStroke();
    if (!run.invisible && run.font != nullptr) {
        SetColor(run.color, false);
        if (m_cut) { // glyphs that are drawn take the colour of lines in some viewers
            SetColor(run.color, true);
        }
    }
    for (std::size_t from = 0; from < count;) {
        std::size_t to = from + 1;
        while (to < count && std::fabs(run.positions[to].y - run.positions[from].y) <= kSamePlace) {
            ++to;
        }
        WriteRun(run, from, to);
        from = to;
    }
}

} // namespace sm::plotter
