// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/DimensionParts.h"

#include "render/Arcs.h"

namespace sm::render {

namespace {

/// Turned so that it is read from below or from the right.
double Readable(double degrees)
{
    double angle = std::fmod(degrees, 360.0);
    angle = angle < 0 ? angle + 360 : angle;
    constexpr double kSlack = 1e-6;
    return angle > 90 + kSlack && angle <= 270 + kSlack ? angle - 180 : angle;
}

Vec2 Turned(Vec2 v, double degrees)
{
    const double c = std::cos(Radians(degrees)), s = std::sin(Radians(degrees));
    return {v.x * c - v.y * s, v.x * s + v.y * c};
}

/// The part of the way from `a` to `b` that lies in the box round the origin; false: none.
bool Covered(Vec2 a, Vec2 b, Vec2 half, double& start, double& end)
{
    start = 0;
    end = 1;
    const auto cut = [&](double from, double step, double limit) {
        if (std::abs(step) < 1e-12) {
            return std::abs(from) < limit;
        }
        const double first = (-limit - from) / step, second = (limit - from) / step;
        start = std::max(start, std::min(first, second));
        end = std::min(end, std::max(first, second));
        return true;
    };
    const Vec2 step = b - a;
    return cut(a.x, step.x, half.x) && cut(a.y, step.y, half.y) && start < end;
}

} // namespace

DimensionParts::DimensionParts(const drawing::DimensionData& dimension, const drawing::DimStyle& style,
                               const NoteTools& tools, NotePicture& picture)
    : m_dimension(dimension), m_style(style), m_tools(tools), m_picture(picture),
      m_linePen(NotePen(style.dimensionColor, style.dimensionWeight)),
      m_extensionPen(NotePen(style.extensionColor, style.extensionWeight))
{
}

Vec2 DimensionParts::GivenPlace(Vec2 fallback) const
{
    return m_dimension.textMidpoint == Vec3{} ? fallback : Vec2{m_dimension.textMidpoint.x, m_dimension.textMidpoint.y};
}

void DimensionParts::SetText(const Measure& measure, const std::string& prefix, Vec2 at, Vec2 along, bool level)
{
    m_text = {};
    static_cast<drawing::Entity&>(m_text) = NotePen(m_style.textColor);
    m_text.text = DimensionText(m_dimension.text, measure, prefix, m_style);
    m_hasText = !m_text.text.empty();
    m_text.style = m_style.textStyle;
    const auto& styles = m_tools.drawing.TextStyles();
    const double fixed = m_style.textStyle < styles.size() ? styles[m_style.textStyle].fixedHeight : 0;
    m_text.height = fixed > 0 ? fixed : Length(m_style.textHeight);
    constexpr std::int32_t kMiddle = 5;
    m_text.attachment = kMiddle;
    m_size = m_hasText ? m_tools.Measure(m_text) : Vec2{};
    const double horizon = -m_dimension.horizontal;
    m_text.rotation = level ? horizon : Readable(AngleOf(along) - horizon) + horizon;
    m_text.rotation = m_dimension.textRotation != 0 ? m_dimension.textRotation : m_text.rotation;
    m_at = at;
    if (m_style.textAbove != 0) {
        constexpr std::int32_t kBelow = 4;
        const double shift = (m_size.y / 2 + Gap()) * (m_style.textAbove == kBelow ? -1 : 1);
        m_at = at + Turned({0, shift}, m_text.rotation);
    }
    m_at = GivenPlace(m_at);
}

void DimensionParts::AddDimensionLine(Vec2 from, Vec2 to)
{
    if (TextInLine()) {
        const auto local = [&](Vec2 p) { return Turned(p - m_at, -m_text.rotation); };
        const Vec2 half{m_size.x / 2 + Gap(), m_size.y / 2 + Gap()};
        double start = 0, end = 0;
        if (Covered(local(from), local(to), half, start, end)) {
            m_picture.AddLine(from, from + (to - from) * start, m_linePen);
            m_picture.AddLine(from + (to - from) * end, to, m_linePen);
            return;
        }
    }
    m_picture.AddLine(from, to, m_linePen);
}

void DimensionParts::AddExtensionLine(Vec2 from, Vec2 to)
{
    m_picture.AddLine(from, to, m_extensionPen);
}

double DimensionParts::AddHead(bool second, Vec2 tip, Vec2 direction)
{
    if (m_style.tickSize > 0) {
        const drawing::ArrowHead tick{"OBLIQUE", drawing::kNoBlock};
        return AddArrow(m_picture, m_tools, tick, tip, direction, 2 * Length(m_style.tickSize), m_linePen);
    }
    const drawing::ArrowHead& own = second ? m_style.second : m_style.first;
    return AddArrow(m_picture, m_tools, m_style.twoArrows != 0 ? own : m_style.arrow, tip, direction, ArrowSize(),
                    m_linePen);
}

void DimensionParts::Finish()
{
    if (!m_hasText) {
        return;
    }
    if (m_style.textGap < 0) {
        const Vec2 x = Turned({m_size.x / 2 + Gap(), 0}, m_text.rotation);
        const Vec2 y = Turned({0, m_size.y / 2 + Gap()}, m_text.rotation);
        m_picture.AddPolygon({m_at - x - y, m_at + x - y, m_at + x + y, m_at - x + y}, m_linePen);
    }
    m_picture.AddText(m_text, m_at);
}

} // namespace sm::render
