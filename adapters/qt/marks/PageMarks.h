// SPDX-License-Identifier: GPL-3.0-or-later
// Marks of a page over its picture.
#pragma once

#include "beside/PageSource.h"
#include "picture/ViewMap.h"

#include <QPainter>

#include <vector>

namespace sm::qt {

/// `marks` in millimetres of the scene that `map` shows.
/// Pixels that a mark takes, its place that of the scene. A stamp of a layout without a paper is shown in one size.
QRectF MarkBox(const beside::PageMark& mark, const ViewMap& map, bool hasPaper);

/// Pixels that stamps of such a layout are high.
inline constexpr double kModelStamp = 16;

void PaintPageMarks(QPainter& painter, const std::vector<beside::PageMark>& marks, const ViewMap& map);

} // namespace sm::qt
