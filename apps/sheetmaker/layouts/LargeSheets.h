// SPDX-License-Identifier: GPL-3.0-or-later
// Sheets that no paper of the PDF plotter holds.
#pragma once

#include "cadhost/PlotWishes.h"
#include "layouts/LayoutSelection.h"

#include <map>
#include <string>

namespace sm::drawing {
class Drawing;
} // namespace sm::drawing

namespace sm::app {

/// Of the layouts that `selection` plots, those whose sheets are larger than every paper, by name; each with the
/// largest paper of like proportion.
std::map<std::string, cadhost::FittedPaper> SheetsToFit(const drawing::Drawing& drawing,
                                                        const LayoutSelection& selection);

} // namespace sm::app
