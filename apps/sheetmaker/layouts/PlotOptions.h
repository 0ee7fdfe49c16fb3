// SPDX-License-Identifier: GPL-3.0-or-later
// How the user wants layouts plotted, laid over whatever page setup is in force.
#pragma once

#include "cadhost/PlotWishes.h"
#include "commandline/Jobs.h"
#include "settings/PageSetupRecord.h"

#include <string>
#include <vector>

namespace sm::drawing {
class Drawing;
} // namespace sm::drawing

namespace sm::app {

/// What the options wish of plots of that drawing. `styles` are the plot style tables that there are. Throws Refusal
/// for a paper or table that isn't there, with the nearest ones.
cadhost::PlotWishes WishesOf(const PlotOptions& options, const drawing::Drawing& drawing,
                             const std::vector<std::string>& styles);

/// The same wishes in a page setup record.
void ApplyWishes(const cadhost::PlotWishes& wishes, PageSetupRecord& record);

/// A paper of the plotter by "A3", "ISO A3 (420.00 x 297.00 MM)" or "420x297mm", which may be 3 mm off; lying unless
/// the word names one that stands. Throws Refusal.
cadhost::FittedPaper PaperCalled(const std::string& word);

} // namespace sm::app
