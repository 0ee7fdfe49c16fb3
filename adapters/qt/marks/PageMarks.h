// SPDX-License-Identifier: GPL-3.0-or-later
// Marks of a page over its picture.
#pragma once

#include "beside/PageSource.h"
#include "scene/PickTexts.h"

#include <QPainter>

#include <vector>

namespace sm::qt {

using scene::kModelStamp;
using scene::ViewMap;

/// `marks` in millimetres of the scene that `map` shows.
/// Pixels that a mark takes, its place that of the scene. A stamp of a layout without a paper is shown in one size.
QRectF MarkBox(const beside::PageMark& mark, const ViewMap& map, bool hasPaper);

void PaintPageMarks(QPainter& painter, const std::vector<beside::PageMark>& marks, const ViewMap& map);

} // namespace sm::qt
