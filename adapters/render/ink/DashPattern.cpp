// SPDX-License-Identifier: GPL-3.0-or-later
#include "ink/DashPattern.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

using Element = drawing::LinetypeElement;

void TakeSymbol(DashPattern& pattern, const Element& element, std::uint32_t index)
{
    constexpr double kLettersPerHeight = 1.5;
    const double size = std::abs(element.scale);
    const double letters = element.kind == Element::Kind::Text ? static_cast<double>(element.text.size()) : 4;
    const double away = std::abs(element.offset.x) + std::abs(element.offset.y);
    if (!std::isfinite(size + away + element.rotation)) {
        return;
    }
    pattern.symbols.push_back({pattern.period, index});
    pattern.reach = std::max(pattern.reach, away + size * (1 + letters * kLettersPerHeight));
}

} // namespace

DashPattern MakeDashPattern(const drawing::Linetype& linetype, bool drawSymbols)
{
    DashPattern pattern;
    bool hasGap = false;
    double dashed = 0;
    for (std::uint32_t i = 0; i < linetype.elements.size(); ++i) {
        const Element& element = linetype.elements[i];
        const bool isSymbol = element.kind != Element::Kind::Plain;
        pattern.hasSymbols = pattern.hasSymbols || isSymbol;
        if (!std::isfinite(element.length)) {
            continue;
        }
        const double begin = pattern.period;
        pattern.period += std::abs(element.length);
        ++pattern.elements;
        hasGap = hasGap || element.length < 0;
        if (element.length >= 0 && !(element.length == 0 && isSymbol)) {
            pattern.marks.push_back({begin, pattern.period});
            dashed += element.length;
        }
        if (isSymbol && drawSymbols) {
            TakeSymbol(pattern, element, i);
        }
    }
    // A line made of shapes alone would vanish with them.
    constexpr double kLeastDashed = 0.1;
    const bool bare = pattern.symbols.empty();
    const bool onlySymbols = bare && pattern.hasSymbols && dashed < kLeastDashed * pattern.period;
    if (pattern.period <= 0 || (bare && (!hasGap || pattern.marks.empty())) || onlySymbols) {
        pattern.marks.clear();
        pattern.symbols.clear();
        return pattern;
    }
    pattern.aligned = !pattern.marks.empty() && pattern.marks.front().begin == 0;
    pattern.firstDash = pattern.aligned ? pattern.marks.front().end : 0;
    return pattern;
}

} // namespace sm::render
