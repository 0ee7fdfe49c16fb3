// SPDX-License-Identifier: GPL-3.0-or-later
// A line type ready for cutting: its dashes and dots along one period.
#pragma once

#include "drawing/Tables.h"

#include <cstdint>
#include <vector>

namespace sm::render {

struct DashPattern {
    struct Mark {
        double begin = 0, end = 0;
    }; ///< along the period; begin == end: a dot
    struct Symbol {
        double at = 0;             ///< along the period
        std::uint32_t element = 0; ///< of the line type
    };
    std::vector<Symbol> symbols; ///< text and shapes; empty when they can't be drawn
    std::vector<Mark> marks;     ///< in order; empty: continuous, as are types made of symbols alone
    double period = 0;           ///< line type units
    double firstDash = 0;        ///< length of the dash or dot that the period begins with
    bool aligned = false;        ///< the period begins with a dash or dot: lines begin and end with it
    std::size_t elements = 0;
    bool hasSymbols = false; ///< holds text or shapes; their places count as the gaps they stand in
    double reach = 0;        ///< line type units that symbols may reach away from their places
    [[nodiscard]] bool Continuous() const { return marks.empty() && symbols.empty(); }
};

/// `drawSymbols` false: text and shapes are left out, and a line made of them alone is drawn through.
DashPattern MakeDashPattern(const drawing::Linetype& linetype, bool drawSymbols = true);

} // namespace sm::render
