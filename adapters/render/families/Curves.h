// SPDX-License-Identifier: GPL-3.0-or-later
// Curves that other families draw as well.
#pragma once

#include "context/PaintContext.h"
#include "drawing/entities/Curves.h"

namespace sm::render {

/// An endless line has no bounds, and shows where the page ends it.
void DrawEndlessLine(PaintContext& context, const drawing::LineData& line, bool bothWays);

} // namespace sm::render
