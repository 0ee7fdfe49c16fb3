#include "render/ClipBox.h"
#include "render/HatchBoundary.h"
#include "render/HatchLines.h"
#include "render/Painter.h"

namespace sm::render {

namespace {

std::uint32_t Average(const std::vector<std::uint32_t>& colors)
{
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        std::uint64_t sum = 0;
        for (const std::uint32_t color : colors) {
            sum += color >> shift & 0xFF;
        }
        result |= static_cast<std::uint32_t>(sum / colors.size()) << shift;
    }
    return result;
}

} // namespace

bool Painter::Draw(const drawing::HatchData& hatch, drawing::EntityKind)
{
    const Matrix2 plane = PlaneOf(m_frame->toPaper, hatch.extrusion, hatch.elevation);
    m_path = FilledBoundary(hatch, plane);
    if (m_path.Empty()) {
        Remark("a hatch without a boundary left out");
        return false;
    }
    if (hatch.gradient && !hatch.gradientColors.empty()) {
        Remark("a gradient filled with its middle colour");
        m_ink.Fill(m_path, Average(hatch.gradientColors), FillRule::EvenOdd);
        return true;
    }
    if (hatch.solid || hatch.gradient || m_options.boxesOnly) {
        m_ink.Fill(m_path, m_style.color, FillRule::EvenOdd);
        return true;
    }
    if (hatch.lines.empty()) {
        Remark("a hatch without pattern lines left out");
        return false;
    }
    DrawPatternHatch(hatch, plane);
    return true;
}

void Painter::DrawPatternHatch(const drawing::HatchData& hatch, const Matrix2& plane)
{
    const Box2 hull = HullOf(m_path);
    const Box2 visible = m_ink.Bounded() ? Grown(m_ink.Clip(), 1) : hull;
    if (!Overlaps(hull, visible) || !std::isfinite(hull.Width() + hull.Height())) {
        return;
    }
    HatchLines lines(m_path, visible);
    m_path.Clear();
    bool thinned = false;
    for (const drawing::HatchLine& family : hatch.lines) {
        thinned = lines.Append(family, plane, m_path) || thinned;
    }
    if (thinned) {
        Remark("a hatch pattern too dense for paper thinned out");
    }
    Pen pen = StrokePen();
    pen.pattern = nullptr;
    pen.cap = LineCap::Butt;
    m_ink.Stroke(m_path, pen);
}

} // namespace sm::render
