// SPDX-License-Identifier: GPL-3.0-or-later
#include "marks/PageMarks.h"

#include <QFontMetricsF>

namespace sm::qt {
namespace {

using beside::PageMark;
using beside::PageMarkKind;

/// Families that stand for the fonts that every PDF reader brings along.
QFont StampFont(const std::string& name)
{
    const QString font = QString::fromStdString(name);
    QFont result(font.startsWith("Courier") ? "Liberation Mono"
                 : font.startsWith("Times") ? "Liberation Serif"
                                            : "Liberation Sans");
    result.setStyleHint(font.startsWith("Courier") ? QFont::Monospace
                        : font.startsWith("Times") ? QFont::Serif
                                                   : QFont::SansSerif);
    result.setBold(font.contains("Bold"));
    result.setItalic(font.contains("Oblique") || font.contains("Italic"));
    return result;
}

constexpr double kEm = 100; // pixels that a stamp's text is set in, before it is scaled

void PaintStamp(QPainter& painter, const PageMark& mark, QPointF at, double scale)
{
    QFont font = StampFont(mark.font);
    font.setPixelSize(static_cast<int>(kEm));
    painter.save();
    painter.translate(at);
    painter.rotate(-mark.turn);
    painter.scale(mark.size * scale / kEm, mark.size * scale / kEm);
    painter.setFont(font);
    painter.setPen(QColor(mark.color & 0xFF, (mark.color >> 8) & 0xFF, (mark.color >> 16) & 0xFF));
    const QString text = QString::fromStdString(mark.text);
    const double width = QFontMetricsF(font).horizontalAdvance(text);
    painter.drawText(QPointF(-width * mark.justification / 2, 0), text);
    painter.restore();
}

void PaintFrame(QPainter& painter, const PageMark& mark, const QRectF& box, QColor color, Qt::PenStyle style)
{
    painter.setPen(QPen(color, 1, style));
    color.setAlpha(0x20);
    painter.fillRect(box, color);
    painter.drawRect(box);
    if (mark.kind == PageMarkKind::Field)
        painter.drawText(box, Qt::AlignCenter, QString::fromStdString(mark.text));
}

void PaintClip(QPainter& painter, QPointF at)
{
    const QRectF sheet(at + QPointF(0, -12), QSizeF(9, 12));
    painter.fillRect(sheet, QColor(0xFF, 0xF0, 0xA0));
    painter.setPen(QColor(0x60, 0x50, 0x00));
    painter.drawRect(sheet);
    for (const int line : {3, 6, 9})
        painter.drawLine(sheet.topLeft() + QPointF(2, line), sheet.topLeft() + QPointF(7, line));
}

QRectF StampBox(const PageMark& mark, QPointF at, double scale)
{
    QFont font = StampFont(mark.font);
    font.setPixelSize(static_cast<int>(kEm));
    const QFontMetricsF metrics(font);
    const double factor = mark.size * scale / kEm;
    const double width = metrics.horizontalAdvance(QString::fromStdString(mark.text)) * factor;
    return {at.x() - width * mark.justification / 2, at.y() - metrics.ascent() * factor, width,
            metrics.height() * factor};
}

} // namespace

QRectF MarkBox(const PageMark& mark, const ViewMap& map)
{
    const Vec2 from = map.ToPixel(mark.from), to = map.ToPixel(mark.to);
    switch (mark.kind) {
    case PageMarkKind::Stamp:
        return StampBox(mark, {from.x, from.y}, map.scale);
    case PageMarkKind::Attachment:
        return {from.x, from.y - 12, 9, 12};
    case PageMarkKind::Field:
    case PageMarkKind::Link:
        break;
    }
    return QRectF(QPointF(from.x, from.y), QPointF(to.x, to.y)).normalized();
}

void PaintPageMarks(QPainter& painter, const std::vector<PageMark>& marks, const ViewMap& map)
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const PageMark& mark : marks) {
        const Vec2 from = map.ToPixel(mark.from), to = map.ToPixel(mark.to);
        const QRectF box = QRectF(QPointF(from.x, from.y), QPointF(to.x, to.y)).normalized();
        switch (mark.kind) {
        case PageMarkKind::Stamp:
            PaintStamp(painter, mark, {from.x, from.y}, map.scale);
            break;
        case PageMarkKind::Attachment:
            PaintClip(painter, {from.x, from.y});
            break;
        case PageMarkKind::Field:
            PaintFrame(painter, mark, box, QColor(0x20, 0x60, 0xC0), Qt::SolidLine);
            break;
        case PageMarkKind::Link:
            PaintFrame(painter, mark, box, QColor(0x00, 0x80, 0x60), Qt::DotLine);
            break;
        }
    }
}

} // namespace sm::qt
