#include "plotter/PsNumber.h"
#include "plotter/PsWriter.h"

namespace sm::plotter {

namespace {

/// Differences of glyph positions below this (em) aren't written.
constexpr double kSamePlace = 0.0006;
/// Glyphs of one string: keeps lines below the 255 characters of the document structuring conventions.
constexpr std::size_t kLongPiece = 80;

/// The bytes of `run.text` that glyph i stands for: up to the next cluster, empty for the further glyphs of a cluster.
std::string_view TextOf(const render::TextRun& run, std::size_t i)
{
    if (i >= run.clusters.size()) {
        return {};
    }
    const std::uint32_t from = run.clusters[i];
    const std::size_t count = run.clusters.size();
    std::uint32_t to = static_cast<std::uint32_t>(run.text.size());
    if (i > 0 && run.clusters[i - 1] == from) {
        return {};
    }
    if (i + 1 < count && run.clusters[i + 1] > from) {
        to = run.clusters[i + 1];
    } else {
        for (const std::uint32_t other : run.clusters) { // right to left, or several glyphs for one cluster
            to = other > from && other < to ? other : to;
        }
    }
    return from < to ? std::string_view(run.text).substr(from, to - from) : std::string_view();
}

} // namespace

void PsWriter::WriteMatrix(const render::Matrix2& m)
{
    for (const double value : {m.a, m.b, m.c, m.d}) {
        WriteNumber(value * m_dots, 3);
    }
    const Dot origin = ToDots({m.e, m.f});
    WriteNumber(origin.x, 1);
    WriteNumber(origin.y, 1);
    Write("Tm");
}

double PsWriter::AdvanceOf(const render::TextRun& run, std::size_t i) const
{
    if (run.font != nullptr) {
        return static_cast<double>(run.font->Advance(run.glyphs[i])) / run.font->UnitsPerEm();
    }
    const double next = i + 1 < run.positions.size() ? run.positions[i + 1].x : run.advance;
    return std::round((next - run.positions[i].x) * 1000) / 1000;
}

GlyphCode PsWriter::CodeOf(const render::TextRun& run, std::size_t i)
{
    if (run.font != nullptr) {
        return m_fonts.Visible(*run.font, run.glyphs[i], TextOf(run, i));
    }
    return m_fonts.Invisible(static_cast<std::int32_t>(std::lround(AdvanceOf(run, i) * 1000)), TextOf(run, i));
}

std::size_t PsWriter::WriteGlyphs(const render::TextRun& run, std::size_t from, std::size_t to)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    const GlyphCode first = CodeOf(run, from);
    bool moved = false;
    m_hex.assign(1, '<');
    double pen = run.positions[from].x;
    std::size_t i = from;
    for (; i < to; ++i) {
        const GlyphCode glyph = CodeOf(run, i);
        const double gap = run.positions[i].x - pen;
        if (glyph.font != first.font || i - from >= kLongPiece) {
            break;
        }
        if (std::fabs(gap) > kSamePlace) {
            char number[kNumberRoom];
            m_hex += '>';
            m_hex.append(number, PutDecimal(number, -1000 * gap, 1));
            m_hex += '<';
            moved = true;
            pen = run.positions[i].x;
        }
        m_hex += kDigits[glyph.code >> 4];
        m_hex += kDigits[glyph.code & 0xF];
        pen += AdvanceOf(run, i);
    }
    m_hex += '>';
    m_body.Append("/F" + std::to_string(first.font) + " 1 Tf\n");
    render::Matrix2 place = run.toPaper;
    const render::Vec2 origin = run.toPaper.Apply(run.positions[from]);
    place.e = origin.x;
    place.f = origin.y;
    WriteMatrix(place);
    m_body.Append(moved ? "[" : "");
    m_body.Append(m_hex);
    m_body.Append(moved ? "] TJ\n" : " Tj\n");
    return i;
}

void PsWriter::WriteRun(const render::TextRun& run, std::size_t from, std::size_t to)
{
    while (from < to) {
        m_body.Append(run.invisible || run.font == nullptr ? "BT\n3 Tr\n" : "BT\n");
        from = WriteGlyphs(run, from, to);
        Write("ET");
    }
}

void PsWriter::Text(const render::TextRun& run)
{
    const std::size_t count =
        run.font == nullptr ? run.positions.size() : std::min(run.glyphs.size(), run.positions.size());
    if (count == 0) {
        return;
    }
    EndStroke();
    if (!run.invisible) {
        SetColor(run.color, false);
    }
    for (std::size_t from = 0; from < count;) { // a piece on one base line at a time
        std::size_t to = from + 1;
        while (to < count && std::fabs(run.positions[to].y - run.positions[from].y) <= kSamePlace) {
            ++to;
        }
        WriteRun(run, from, to);
        from = to;
    }
}

} // namespace sm::plotter
