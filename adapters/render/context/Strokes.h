// SPDX-License-Identifier: GPL-3.0-or-later
// Lines and areas in the style of the entity at hand.
#pragma once

#include "context/PaintContext.h"

#include <span>

namespace sm::render {

/// The context's path with the pen of the entity at hand. `breaks`: verbs where the line type starts anew.
void StrokePath(PaintContext& context, std::span<const std::uint32_t> breaks = {});
/// With the symbols of the pen's line type.
void StrokePath(PaintContext& context, const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks = {});

/// An area as the plot style fills it: evenly, or with the lines of a pattern; its outline where the drawing fills
/// nothing.
void FillArea(PaintContext& context, const Path& path, FillRule rule);

/// What a thickness adds to the context's path when the view isn't along it: the same outline at the far end, and
/// lines across (DXF reference, common group 39).
void StrokeSides(PaintContext& context, const drawing::Entity& entity);

} // namespace sm::render
