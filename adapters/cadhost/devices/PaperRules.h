// SPDX-License-Identifier: GPL-3.0-or-later
// Which sheet a layout has and where its printable area lies.
#pragma once

#include "devices/Pc3File.h"
#include "drawing/Layouts.h"

namespace sm::cadhost {

/// The strips as they lie round the drawing when it is plotted with `rotation` (0 to 3, quarter turns
/// counter-clockwise). With 1 the drawing's left is the sheet's top and its bottom the sheet's left, as the limits show
/// that CAD programs write into turned layouts.
Margins TurnedMargins(const Margins& unturned, std::int32_t rotation);

/// Both sides are within 3 mm in whole millimetres, as the paper table matches sheets.
bool SameSheet(double width, double height, double otherWidth, double otherHeight);

/// The sheet has a size: the layout's paper is known.
bool HasPaper(const drawing::PlotSettings& settings);

/// The margins of `settings`, or none where they leave nothing of the sheet.
Margins MarginsOf(const drawing::PlotSettings& settings);

/// The sheet of `settings`; where the file gives a size and no name, one is made from the size.
Medium MediumOf(const drawing::PlotSettings& settings);

/// The margins of `medium`, unturned, when it is plotted with `rotation` in place of the layout's own paper. Where the
/// sheet looks the same as the layout's own, or is the same sheet, the layout's own margins stay in force, so that its
/// (0, 0) stays where it was drawn.
Margins MarginsInForce(const drawing::PlotSettings& own, const Medium& medium, std::int32_t rotation);

/// Stands for the paper of a layout that has none: ISO A4 or ANSI A.
Medium AssumedMedium(bool metric, bool landscape);

} // namespace sm::cadhost
