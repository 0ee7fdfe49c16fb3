// SPDX-License-Identifier: GPL-3.0-or-later
// Which sheet of a list takes the place of one that isn't offered.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sm::terminal {

/// A sheet's sides in millimetres.
struct Paper {
    double width = 0, height = 0;
    friend bool operator==(const Paper&, const Paper&) = default;
};

/// The sides that a sheet's name carries, "ISO A3 (297.00 x 420.00 MM)" or "ANSI A (8.50 x 11.00 Inches)"; nothing when
/// it carries none.
std::optional<Paper> PaperOfName(const std::string& name);

/// Position of the nearest larger sheet: the smallest among those of like proportion (the ratio of the sides within a
/// twentieth) into which `wanted` fits, else the smallest into which it fits at all. Three millimetres of a side may
/// be missing, as when sheets are matched by size. Nothing when `wanted` fits into none.
std::optional<std::int32_t> NearestLarger(const std::vector<std::string>& names, const Paper& wanted);

/// Position of the largest sheet among those of like proportion, else of the largest of all: for what fits into none.
std::optional<std::int32_t> LargestLike(const std::vector<std::string>& names, const Paper& wanted);

} // namespace sm::terminal
