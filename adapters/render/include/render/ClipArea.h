// SPDX-License-Identifier: GPL-3.0-or-later
// Filled paths against a box.
#pragma once

#include "render/Canvas.h"

namespace sm::render {

/// Appends the part of a filled path that lies in `box`: curves as lines, each sub-path cut for itself. Both fill rules
/// give the same area inside the box as before.
void AppendClippedArea(const Path& path, const Box2& box, Path& out);

} // namespace sm::render
