// SPDX-License-Identifier: GPL-3.0-or-later
// Marks of a page over its picture.
#pragma once

#include "beside/PageSource.h"
#include "scene/ViewMap.h"

#include <QPainter>

#include <vector>

namespace sm::qt {

using scene::ViewMap;

/// Pixels that a mark takes; it is in millimetres of the scene that `map` shows.
QRectF MarkBox(const beside::PageMark& mark, const ViewMap& map);

/// `marks` in millimetres of the scene that `map` shows.
void PaintPageMarks(QPainter& painter, const std::vector<beside::PageMark>& marks, const ViewMap& map);

} // namespace sm::qt
