// SPDX-License-Identifier: GPL-3.0-or-later
#include "marks/PickMarks.h"

#include <QFontMetricsF>
#include <QPainterPath>

namespace sm::qt {
namespace {

const QColor kMark(0xD0, 0x30, 0x00);
const QColor kBand(0x10, 0x60, 0xC0);
constexpr double kHalf = 7; // pixels

QPainterPath MarkOf(SnapKind kind)
{
    QPainterPath path;
    switch (kind) {
    case SnapKind::End:
        path.addRect(-kHalf, -kHalf, 2 * kHalf, 2 * kHalf);
        break;
    case SnapKind::Middle:
        path.moveTo(0, -kHalf);
        path.lineTo(kHalf, kHalf);
        path.lineTo(-kHalf, kHalf);
        path.closeSubpath();
        break;
    case SnapKind::Center:
        path.addEllipse(QPointF(0, 0), kHalf, kHalf);
        break;
    case SnapKind::Intersection:
        path.moveTo(-kHalf, -kHalf);
        path.lineTo(kHalf, kHalf);
        path.moveTo(-kHalf, kHalf);
        path.lineTo(kHalf, -kHalf);
        break;
    }
    return path;
}

} // namespace

void PaintCrossHair(QPainter& painter, Vec2 at, int width, int height, QColor color)
{
    color.setAlpha(0xB0);
    painter.setPen(QPen(color, 1));
    painter.drawLine(QPointF(0, at.y), QPointF(width, at.y));
    painter.drawLine(QPointF(at.x, 0), QPointF(at.x, height));
}

void PaintRubberBand(QPainter& painter, Vec2 first, Vec2 other)
{
    const QRectF band = QRectF(QPointF(first.x, first.y), QPointF(other.x, other.y)).normalized();
    QColor inside = kBand;
    inside.setAlpha(0x28);
    painter.fillRect(band, inside);
    painter.setPen(QPen(kBand, 1, Qt::DashLine));
    painter.drawRect(band);
}

void PaintSnapMark(QPainter& painter, SnapKind kind, Vec2 at, int width)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(at.x, at.y);
    painter.strokePath(MarkOf(kind), QPen(kMark, 2));
    const QString name = QString::fromUtf8(SnapName(kind));
    const QRectF text = QFontMetricsF(painter.font()).boundingRect(name);
    const double reach = 2 * kHalf + 6;
    const double x = at.x + reach + text.width() > width ? -reach - text.width() : reach;
    const QRectF label(x - 3, reach - 3, text.width() + 6, text.height() + 6);
    painter.fillRect(label, QColor(0xFF, 0xFF, 0xE1));
    painter.setPen(QColor(0x20, 0x20, 0x20));
    painter.drawRect(label);
    painter.drawText(label, Qt::AlignCenter, name);
    painter.restore();
}

} // namespace sm::qt
