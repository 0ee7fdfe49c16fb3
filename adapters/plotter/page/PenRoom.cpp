// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/PenRoom.h"

#include "fonts/PenWidth.h"
#include "render/PlotStyleTable.h"

#include <algorithm>

namespace sm::plotter {

namespace {

constexpr double kWidestLineweight = 2.11; // mm (DXF reference, group 370)
constexpr double kSame = 1e-6;             // mm

} // namespace

double WidestPen(const PlotJob& job, double lineweightScale)
{
    if (!job.settings.Has(drawing::PlotSettings::kLineweights)) {
        return kThinnestPen;
    }
    double widest = kWidestLineweight;
    if (job.plotStyles != nullptr) {
        for (const double width : job.plotStyles->lineweights) {
            widest = std::max(widest, width);
        }
    }
    return std::max(widest * lineweightScale, kThinnestPen);
}

Box2 ClipWithRoom(const Placement& placement, double pen)
{
    Box2 clip = placement.clip;
    const Box2& whole = placement.whole;
    if (clip.Empty() || whole.Empty()) {
        return clip;
    }
    const auto low = [&](double edge, double end) { return end < edge - kSame ? edge : std::min(edge, end - pen / 2); };
    const auto high = [&](double edge, double end) {
        return end > edge + kSame ? edge : std::max(edge, end + pen / 2);
    };
    clip.min = {low(clip.min.x, whole.min.x), low(clip.min.y, whole.min.y)};
    clip.max = {high(clip.max.x, whole.max.x), high(clip.max.y, whole.max.y)};
    return clip;
}

} // namespace sm::plotter
