// SPDX-License-Identifier: GPL-3.0-or-later
// The layouts of a drawing in words and numbers, for people.
#pragma once

#include "session/OpenDrawing.h"

namespace sm::cadhost {

/// The layouts that the run shows, in tab order.
std::vector<LayoutFacts> ListLayouts(OpenDrawing& open);
std::vector<LayoutOutline> OutlineLayouts(const OpenDrawing& open);

/// "display", "extents", "limits", "view 'Plan'", "window 0,0 to 420,297", "layout".
std::string PlotAreaText(const drawing::PlotSettings& settings);
/// "1:50", "2:1", "fit (1:48.2)".
std::string ScaleText(const PlotScale& scale, bool fit);

} // namespace sm::cadhost
