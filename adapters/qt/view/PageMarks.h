// SPDX-License-Identifier: GPL-3.0-or-later
// Marks of a page over its picture.
#pragma once

#include "beside/PageSource.h"
#include "picture/ViewMap.h"

#include <QPainter>

#include <vector>

namespace sm::qt {

/// `marks` in millimetres of the scene that `map` shows.
void PaintPageMarks(QPainter& painter, const std::vector<beside::PageMark>& marks, const ViewMap& map);

} // namespace sm::qt
