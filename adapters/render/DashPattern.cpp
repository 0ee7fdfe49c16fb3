#include "render/DashPattern.h"

#include <cmath>

namespace sm::render {

DashPattern MakeDashPattern(const drawing::Linetype& linetype)
{
    DashPattern pattern;
    bool hasGap = false;
    double dashed = 0;
    for (const drawing::LinetypeElement& element : linetype.elements) {
        pattern.hasSymbols = pattern.hasSymbols || element.kind != drawing::LinetypeElement::Kind::Plain;
        if (!std::isfinite(element.length)) {
            continue;
        }
        const double begin = pattern.period;
        pattern.period += std::abs(element.length);
        ++pattern.elements;
        hasGap = hasGap || element.length < 0;
        const bool symbol = element.length == 0 && element.kind != drawing::LinetypeElement::Kind::Plain;
        if (element.length >= 0 && !symbol) {
            pattern.marks.push_back({begin, pattern.period});
            dashed += element.length;
        }
    }
    // A line made of shapes alone would vanish with them.
    constexpr double kLeastDashed = 0.1;
    const bool onlySymbols = pattern.hasSymbols && dashed < kLeastDashed * pattern.period;
    if (!hasGap || pattern.period <= 0 || pattern.marks.empty() || onlySymbols) {
        pattern.marks.clear();
        return pattern;
    }
    pattern.aligned = pattern.marks.front().begin == 0;
    pattern.firstDash = pattern.aligned ? pattern.marks.front().end : 0;
    return pattern;
}

} // namespace sm::render
