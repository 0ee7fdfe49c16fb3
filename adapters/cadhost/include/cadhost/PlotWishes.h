// SPDX-License-Identifier: GPL-3.0-or-later
// What a run wants plotted otherwise than the drawing's own page setups say.
#pragma once

#include <optional>
#include <string>

namespace sm::cadhost {

/// A paper by its names; the sides lie as the sheet is read, millimetres.
struct FittedPaper {
    std::string canonicalName, localeName;
    double width = 0, height = 0;
    friend bool operator==(const FittedPaper&, const FittedPaper&) = default;
};

/// Millimetres of paper that show so many drawing units.
struct WantedScale {
    double paper = 1, drawing = 1;
    friend bool operator==(const WantedScale&, const WantedScale&) = default;
};

/// Nothing in an optional, false in a switch: as the page setup has it.
struct PlotWishes {
    std::optional<FittedPaper> paper{};
    std::optional<bool> landscape{}; ///< the paper lies or stands; its own sides else
    bool fit = false;
    std::optional<WantedScale> scale{};
    bool center = false;
    std::optional<std::string> style{}; ///< file name of a plot style table; empty: none
    double penScale = 1;                ///< all pens are so much wider
    friend bool operator==(const PlotWishes&, const PlotWishes&) = default;
};

} // namespace sm::cadhost
