// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/controls/FormScale.h"

#include <algorithm>

namespace sm::windows {
namespace {

constexpr double kStep = 1.03; ///< by which a form is widened until its wrapping texts fit
constexpr int kMostSteps = 100;

/// Makes `unit` large enough for `pixels` in `units`; one pixel more, for what rounding takes.
void Need(double& unit, LONG pixels, std::int32_t units)
{
    if (pixels > 0 && units > 0)
        unit = std::max(unit, (pixels + 1.0) / units);
}

/// Nothing lies on the border or the caption of what holds it.
void ClearBorder(FormUnits& units, const FormControl& holder, const FormControl& inner, const RECT& border)
{
    const ControlPlace &out = holder.place, &in = inner.place;
    if (inner.kind == ControlKind::TabPage) {
        Need(units.x, border.left + border.right, out.width - in.width);
        Need(units.y, border.top + border.bottom, out.height - in.height);
        return;
    }
    if (in.width <= 0 || in.height <= 0)
        return;
    Need(units.x, border.left, in.left);
    Need(units.y, border.top, in.top);
    Need(units.x, border.right, out.width - in.left - in.width);
    Need(units.y, border.bottom, out.height - in.top - in.height);
}

bool AllWrap(const std::vector<FormControl>& controls, const ControlWindows& windows, const FormFont& font,
             const FormUnits& units)
{
    for (std::size_t i = 1; i < controls.size(); ++i) {
        const ControlPlace& place = controls[i].place;
        if (!windows[i]->WrapsInto(font, {units.Across(place.width), units.Down(place.height)}))
            return false;
    }
    return true;
}

} // namespace

FormUnits MeasureScale(const std::vector<FormControl>& controls, const ControlWindows& windows, const FormFont& font)
{
    FormUnits units{font.Average() / 4, font.Height() / 8.0};
    for (std::size_t i = 1; i < controls.size(); ++i) {
        const SIZE needed = windows[i]->Needed(font);
        Need(units.x, needed.cx, controls[i].place.width);
        Need(units.y, needed.cy, controls[i].place.height);
        if (const std::size_t holder = controls[i].parent; holder != 0)
            ClearBorder(units, controls[holder], controls[i], windows[holder]->Border(font));
    }
    for (int step = 0; step < kMostSteps && !AllWrap(controls, windows, font, units); ++step)
        units.x *= kStep;
    return units;
}

} // namespace sm::windows
