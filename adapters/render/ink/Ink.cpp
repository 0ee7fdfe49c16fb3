// SPDX-License-Identifier: GPL-3.0-or-later
#include "ink/Ink.h"

#include "render/ClipArea.h"
#include "render/ClipBox.h"

namespace sm::render {

namespace {

// Far beyond any sheet, well within the coordinates that interpreters can hold in device pixels.
constexpr double kFarAway = 20000;     // mm
constexpr double kFinestElement = 0.1; // mm; a line type whose dashes and gaps are shorter on average looks continuous

bool IsFinite(const Path& path)
{
    double sum = 0;
    for (const Vec2 point : path.points) {
        sum += std::abs(point.x) + std::abs(point.y);
    }
    return std::isfinite(sum);
}

bool ReachesFar(const Box2& hull)
{
    return !Contains({{-kFarAway, -kFarAway}, {kFarAway, kFarAway}}, hull);
}

bool IsDashed(const Pen& pen)
{
    if (pen.pattern == nullptr || pen.pattern->Continuous()) {
        return false;
    }
    const double period = pen.pattern->period * pen.dashScale;
    return std::isfinite(period) && period >= kFinestElement * static_cast<double>(pen.pattern->elements);
}

} // namespace

Ink::Ink(ICanvas& canvas, const Box2& clip) : m_canvas(canvas), m_clip(clip), m_bounded(!clip.Empty()) {}

void Ink::Begin(const EntityMark& mark)
{
    m_mark = mark;
    m_announced = false;
}

bool Ink::End()
{
    if (!m_announced) {
        return false;
    }
    m_announced = false;
    m_canvas.EndEntity();
    return true;
}

void Ink::Announce()
{
    if (!m_announced) {
        m_announced = true;
        m_canvas.BeginEntity(m_mark);
    }
}

bool Ink::Shows(const Path& path, double margin)
{
    constexpr std::size_t kCheaper = 8; // off the page
    m_hull = HullOf(path);
    const bool shows =
        path.verbs.size() > 1 && IsFinite(path) && (!m_bounded || Overlaps(m_hull, Grown(m_clip, margin)));
    m_steps += shows ? path.verbs.size() : path.verbs.size() / kCheaper;
    return shows;
}

void Ink::Stroke(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks)
{
    m_space == nullptr ? StrokeFlat(path, pen, breaks) : StrokeInSpace(path, pen, breaks);
}

void Ink::Fill(const Path& path, std::uint32_t color, FillRule rule)
{
    m_space == nullptr ? FillFlat(path, color, rule) : FillInSpace(path, color, rule);
}

void Ink::Text(const TextRun& run, const Path& outline)
{
    m_space == nullptr ? TextFlat(run, outline) : TextInSpace(run, outline);
}

void Ink::Image(const Picture& picture, const Matrix2& toPaper, std::uint32_t color)
{
    m_space == nullptr ? ImageFlat(picture, toPaper, color) : ImageInSpace(picture, toPaper, color);
}

void Ink::StrokeFlat(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks)
{
    m_dasher.ForgetSymbols();
    if (!Shows(path, pen.width)) {
        return;
    }
    const StrokeStyle style{pen.color, pen.width, pen.cap, pen.join};
    const Box2 visible = Grown(m_clip, pen.width + 1);
    const bool dashed = m_bounded && IsDashed(pen);
    const bool far = m_bounded && ReachesFar(m_hull);
    if (!dashed && !far) {
        Announce();
        m_canvas.Stroke(path, style);
        return;
    }
    m_cut.Clear();
    if (dashed) {
        m_dasher.Cut(path, breaks, *pen.pattern, pen.dashScale, visible, m_cut);
    } else {
        AppendClipped(path, visible, m_cut);
    }
    m_steps += m_cut.verbs.size();
    if (!m_cut.Empty()) {
        Announce();
        m_canvas.Course(path);
        m_canvas.Stroke(m_cut, style);
    }
}

void Ink::FillFlat(const Path& path, std::uint32_t color, FillRule rule)
{
    if (!Shows(path, 0)) {
        return;
    }
    if (!m_bounded || !ReachesFar(m_hull)) {
        Announce();
        m_canvas.Fill(path, color, rule);
        return;
    }
    m_cut.Clear();
    AppendClippedArea(path, Grown(m_clip, 1), m_cut);
    if (!m_cut.Empty()) {
        Announce();
        m_canvas.Fill(m_cut, color, rule);
    }
}

void Ink::TextFlat(const TextRun& run, const Path& outline)
{
    const Matrix2& m = run.toPaper;
    const bool finite = std::isfinite(m.a + m.b + m.c + m.d + m.e + m.f);
    if (finite && Shows(outline, run.penWidth)) {
        Announce();
        m_steps += run.glyphs.size();
        m_canvas.Text(run);
    }
}

void Ink::ImageFlat(const Picture& picture, const Matrix2& toPaper, std::uint32_t color)
{
    m_cut.Clear();
    AppendBox(m_cut, {{0, 0}, {1, 1}});
    for (Vec2& point : m_cut.points) {
        point = toPaper.Apply(point);
    }
    constexpr double kFarthest = 10 * kFarAway; // beyond it interpreters lose their way
    if (Shows(m_cut, 0) && Contains({{-kFarthest, -kFarthest}, {kFarthest, kFarthest}}, m_hull)) {
        Announce();
        m_canvas.Image(picture, toPaper, color);
    }
}

Ink::ClipGuard::ClipGuard(Ink& ink, const Path& path, FillRule rule)
    : m_ink(ink), m_former(ink.m_clip), m_bounded(ink.m_bounded)
{
    if (ink.m_space != nullptr) {
        m_pushed = ink.ClipInSpace(path);
    }
    if (!m_pushed) {                                               // nothing is drawn
        if (!ink.Measuring() && !ink.m_space->Eye().perspective) { // faces are gathered, as far as the clip shows them
            ink.m_clip = ink.m_bounded ? Intersection(ink.m_clip, HullOf(path)) : HullOf(path);
            ink.m_bounded = true;
        }
        return;
    }
    const Path& shown = ink.m_space != nullptr ? ink.m_inSpace : path;
    ink.m_canvas.PushClip(shown, rule);
    ink.m_clip = ink.m_bounded ? Intersection(ink.m_clip, HullOf(shown)) : HullOf(shown);
    ink.m_bounded = true;
}

Ink::ClipGuard::~ClipGuard()
{
    m_ink.m_clip = m_former;
    m_ink.m_bounded = m_bounded;
    if (!m_pushed) {
        return;
    }
    try {
        m_ink.m_canvas.PopClip();
    } catch (...) { // a canvas that can't pop has failed for good, and says so at its end
    }
}

} // namespace sm::render
