// SPDX-License-Identifier: GPL-3.0-or-later
// Draws text that is laid out already.
#pragma once

#include "context/PaintContext.h"
#include "render/TextLayout.h"

namespace sm::render {

/// In the style of the entity at hand, from the text's own plane to the sheet.
void DrawLaidText(PaintContext& context, const LaidText& text);
void DrawLaidText(PaintContext& context, const LaidText& text, const Matrix2& plane);

/// Appends a closed line through the corners, unless there are none.
void AppendCorners(Path& path, const std::vector<Vec2>& corners, const Matrix2& plane);

} // namespace sm::render
