// SPDX-License-Identifier: GPL-3.0-or-later
#include "postscript/PsWriter.h"

#include "base/Units.h"
#include "base/text/NumberText.h"
#include "fonts/PenWidth.h"

#include <algorithm>
#include <cstring>

namespace sm::plotter {

namespace {

/// Interpreters keep device coordinates in 24 bits, of 1200 dots per inch at most; what lies further off the sheet is
/// moved to here.
constexpr std::int32_t kFarthest = static_cast<std::int32_t>(4e6 * kUnitsPerInch / 1200);
/// Segments after which a stroke is painted though more of the same pen follow.
constexpr std::size_t kLongStroke = 500;

std::int32_t ToDot(double value)
{
    if (!(value > -kFarthest)) {
        return value <= -kFarthest ? -kFarthest : 0;
    }
    return static_cast<std::int32_t>(std::lrint(std::min<double>(value, kFarthest)));
}

} // namespace

PsWriter::PsWriter(double unitsPerInch, std::string folder, double resolution, FontBook* fonts)
    : m_body(folder), m_fonts(fonts != nullptr ? *fonts : m_ownFonts), m_pictures(std::move(folder)),
      m_units(unitsPerInch / base::kMillimetresPerInch),
      m_onePen(base::kMillimetresPerInch / (resolution > 0 ? resolution : unitsPerInch))
{
}

Dot PsWriter::ToDots(Vec2 p) const
{
    return {ToDot(p.x * m_units), ToDot(p.y * m_units)};
}

void PsWriter::Write(const char* op)
{
    const std::size_t length = std::strlen(op);
    char* at = m_body.Reserve(length + 1);
    std::memcpy(at, op, length);
    at[length] = '\n';
    m_body.Advance(at + length + 1);
}

void PsWriter::WriteNumber(double value, int digits)
{
    char* at = m_body.Reserve(base::kNumberRoom + 2);
    at = base::PutDecimal(at, value, digits);
    *at++ = ' ';
    m_body.Advance(at);
}

void PsWriter::EndStroke()
{
    if (m_openSegments > 0) {
        m_path.WriteTo(m_body, true);
        Write("S");
        m_openSegments = 0;
    }
    m_pencil.onPaper = false;
}

void PsWriter::BeginSubPath()
{
    if (!m_pencil.drawn) {
        if (!m_pencil.onPaper || m_pencil.at != m_pencil.start) {
            m_path.MoveTo(m_pencil.start);
        }
        m_pencil.at = m_pencil.start;
        m_pencil.onPaper = true;
        m_pencil.drawn = true;
    }
}

void PsWriter::LineTo(Dot p)
{
    m_pencil.asked = true;
    if (p == (m_pencil.drawn ? m_pencil.at : m_pencil.start)) {
        return;
    }
    BeginSubPath();
    m_path.LineTo(p);
    m_pencil.at = p;
    ++m_openSegments;
}

void PsWriter::CubicTo(Dot a, Dot b, Dot c)
{
    const Dot from = m_pencil.drawn ? m_pencil.at : m_pencil.start;
    if (a == from && b == from) {
        LineTo(c);
        return;
    }
    m_pencil.asked = true;
    BeginSubPath();
    m_path.CubicTo(a, b, c);
    m_pencil.at = c;
    ++m_openSegments;
}

void PsWriter::EndSubPath()
{
    if (m_pencil.asked && !m_pencil.drawn) { // of no length: a dot
        m_pencil.onPaper = false;
        BeginSubPath();
        m_path.LineTo(m_pencil.at);
        ++m_openSegments;
    }
    m_pencil.asked = false;
    m_pencil.drawn = false;
}

void PsWriter::Close()
{
    const bool wasDrawn = m_pencil.drawn;
    EndSubPath();
    if (wasDrawn) {
        m_path.Close();
        m_pencil.onPaper = false;
    }
}

void PsWriter::Draw(const render::Path& path, bool chains)
{
    // A closed sub-path that went on from another one would close to where that one began.
    const bool closes = std::find(path.verbs.begin(), path.verbs.end(), render::Verb::Close) != path.verbs.end();
    chains = chains && !closes;
    std::size_t next = 0;
    for (const render::Verb verb : path.verbs) {
        const std::size_t needs = verb == render::Verb::Cubic ? 3 : verb == render::Verb::Close ? 0 : 1;
        if (next + needs > path.points.size()) {
            break;
        }
        const Vec2* p = path.points.data() + next;
        next += needs;
        switch (verb) {
        case render::Verb::Move:
            EndSubPath();
            m_pencil.start = ToDots(p[0]);
            m_pencil.onPaper = m_pencil.onPaper && chains;
            break;
        case render::Verb::Line:
            LineTo(ToDots(p[0]));
            break;
        case render::Verb::Cubic:
            CubicTo(ToDots(p[0]), ToDots(p[1]), ToDots(p[2]));
            break;
        case render::Verb::Close:
            Close();
            break;
        }
    }
    EndSubPath();
}

void PsWriter::Stroke(const render::Path& path, const render::StrokeStyle& style)
{
    EnterLayer();
    m_hasInk = true;
    if (m_openSegments == 0 || m_openSegments >= kLongStroke || !(m_pen == style)) {
        EndStroke();
        m_pen = style;
        SetPen(style);
    }
    // A new stroke may go on from the last one's end where a round join looks like two round caps.
    Draw(path, style.cap == render::LineCap::Round && style.join == render::LineJoin::Round);
}

void PsWriter::Fill(const render::Path& path, std::uint32_t color, render::FillRule rule)
{
    EnterLayer();
    EndStroke();
    m_hasInk = true;
    SetColor(color, false);
    Draw(path, false);
    m_path.WriteTo(m_body, false);
    if (m_openSegments > 0) {
        Write(rule == render::FillRule::EvenOdd ? "f*" : "f");
    }
    m_openSegments = 0;
    m_pencil.onPaper = false;
}

void PsWriter::PushClip(const render::Path& path, render::FillRule rule)
{
    EndStroke();
    m_saved.push_back(m_state);
    Write("q");
    Draw(path, false);
    if (m_openSegments == 0) { // an empty clip shows nothing
        m_path.MoveTo({});
    }
    m_path.WriteTo(m_body, false);
    Write(rule == render::FillRule::EvenOdd ? "W*" : "W");
    Write("n");
    m_openSegments = 0;
    m_pencil.onPaper = false;
}

void PsWriter::PopClip()
{
    EndStroke();
    if (!m_saved.empty()) {
        m_state = m_saved.back();
        m_saved.pop_back();
        Write("Q");
    }
}

void PsWriter::Finish()
{
    EndStroke();
    while (!m_saved.empty()) {
        PopClip();
    }
    if (m_layer) {
        Write("EMC");
        m_layer.reset();
    }
}

} // namespace sm::plotter
