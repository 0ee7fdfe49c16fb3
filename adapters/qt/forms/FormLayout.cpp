// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/FormLayout.h"

#include <QFontMetricsF>

#include <algorithm>

namespace sm::qt {
namespace {

constexpr double kStep = 1.03; ///< by which a form is widened until its wrapping texts fit
constexpr int kMostSteps = 100;

FormUnits UnitsOf(const QFont& font)
{
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    const QFontMetricsF metrics(font);
    return {metrics.horizontalAdvance(letters) / static_cast<double>(letters.size()) / 4, metrics.height() / 8};
}

/// Makes `unit` large enough for `pixels` in `units`; one pixel more, for what rounding takes.
void Need(double& unit, int pixels, std::int32_t units)
{
    if (pixels > 0 && units > 0)
        unit = std::max(unit, (pixels + 1.0) / units);
}

/// Nothing lies on the border or the caption of what holds it.
void ClearBorder(FormUnits& units, const FormControl& parent, const FormControl& child, const QMargins& border)
{
    const ControlPlace &outer = parent.place, &inner = child.place;
    if (child.kind == ControlKind::TabPage) {
        Need(units.x, border.left() + border.right(), outer.width - inner.width);
        return Need(units.y, border.top() + border.bottom(), outer.height - inner.height);
    }
    if (inner.width <= 0 || inner.height <= 0)
        return;
    Need(units.x, border.left(), inner.left);
    Need(units.y, border.top(), inner.top);
    Need(units.x, border.right(), outer.width - inner.left - inner.width);
    Need(units.y, border.bottom(), outer.height - inner.top - inner.height);
}

} // namespace

FormUnits MeasureUnits(const std::vector<FormControl>& controls, const ControlViews& views, const QFont& font)
{
    FormUnits units = UnitsOf(font);
    for (std::size_t i = 1; i < controls.size(); ++i) {
        const QSize needed = views[i]->Needed();
        Need(units.x, needed.width(), controls[i].place.width);
        Need(units.y, needed.height(), controls[i].place.height);
        if (controls[i].parent != 0)
            ClearBorder(units, controls[controls[i].parent], controls[i], views[controls[i].parent]->Border());
    }
    for (int step = 0; step < kMostSteps; ++step) {
        const auto fits = [&](std::size_t i) { return views[i]->WrapsInto(units.Rect(controls[i].place).size()); };
        std::size_t i = 0;
        while (i < controls.size() && fits(i))
            ++i;
        if (i == controls.size())
            break;
        units.x *= kStep;
    }
    return units;
}

} // namespace sm::qt
