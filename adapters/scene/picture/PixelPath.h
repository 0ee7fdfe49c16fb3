// SPDX-License-Identifier: GPL-3.0-or-later
// Recorded shapes in pixels, curves as lines.
#pragma once

#include "scene/DisplayList.h"
#include "scene/ViewMap.h"

namespace sm::scene {

/// The affine map from an item's own coordinates (millimetres from its origin) to pixels.
Matrix2 ToPixels(const ViewMap& map, Vec2 origin);

/// Appends `verbs` over `points`, mapped and with its curves as lines that are off by a small part of a pixel.
void AppendFlattened(std::span<const render::Verb> verbs, std::span<const Spot> points, const Matrix2& map, Path& out);
void AppendFlattened(const Path& path, const Matrix2& map, Path& out);

} // namespace sm::scene
