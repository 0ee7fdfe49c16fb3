// SPDX-License-Identifier: GPL-3.0-or-later
// What is drawn over the drawing while one picks: cross-hair, rubber band, snap marks.
#pragma once

#include "scene/SnapIndex.h"

#include <QPainter>

namespace sm::qt {

using scene::SnapKind;

void PaintCrossHair(QPainter& painter, Vec2 at, int width, int height, QColor color);
void PaintRubberBand(QPainter& painter, Vec2 first, Vec2 other);
/// Square, triangle, circle or cross, with the snap's name beside it.
void PaintSnapMark(QPainter& painter, SnapKind kind, Vec2 at, int width);

} // namespace sm::qt
