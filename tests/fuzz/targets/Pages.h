// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of our own plotter, for the targets that read them.
#pragma once

#include "dialect/DialectPage.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::fuzz {

/// What the plotter writes of each layout of a drawing, model first; at most `most`. Inserts unfold to a few hundred
/// entities at most. `keepLayers`: pages say what each layer shows. Throws drawing::DrawingError, plotter::PlotError.
std::vector<std::string> PlotPages(std::string_view dxf, bool keepLayers, std::size_t most = 2);

/// The publisher's way from a page to PDF objects; false when it leaves the page to an interpreter.
bool MakePage(publisher::DialectPage page);

} // namespace sm::fuzz
