// A line type ready for cutting: its dashes and dots along one period.
#pragma once

#include "drawing/Tables.h"

#include <vector>

namespace sm::render {

struct DashPattern {
    struct Mark {
        double begin = 0, end = 0;
    };                       ///< along the period; begin == end: a dot
    std::vector<Mark> marks; ///< in order; empty: continuous, as are types made of symbols alone
    double period = 0;       ///< line type units
    double firstDash = 0;    ///< length of the dash or dot that the period begins with
    bool aligned = false;    ///< the period begins with a dash or dot: lines begin and end with it
    std::size_t elements = 0;
    bool hasSymbols = false; ///< holds text or shapes; their places count as the gaps they stand in
};

DashPattern MakeDashPattern(const drawing::Linetype& linetype);

} // namespace sm::render
