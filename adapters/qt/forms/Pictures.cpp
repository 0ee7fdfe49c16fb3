// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Pictures.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace sm::qt {
namespace {

constexpr double kSheetWidth = 0.8; ///< of its height

const QColor kBlue(0x1F, 0x5A, 0x96);
const QColor kRed(0xC0, 0x39, 0x2B);
const QColor kAmber(0xFF, 0xC8, 0x2E);
const QColor kPaper(0xFD, 0xFD, 0xFA);
const QColor kFold(0xD5, 0xDD, 0xE6);

/// The rooms of a small plan, in a square of side 1.
void PaintPlan(QPainter& painter, double pen)
{
    painter.setPen(QPen(kBlue, pen, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0.16, 0.30, 0.48, 0.30));
    painter.drawLine(QPointF(0.40, 0.30), QPointF(0.40, 0.44));
    painter.drawLine(QPointF(0.40, 0.52), QPointF(0.40, 0.60));
    painter.drawArc(QRectF(0.32, 0.44, 0.16, 0.16), 90 * 16, 90 * 16);
    painter.drawLine(QPointF(0.16, 0.21), QPointF(0.46, 0.21));
    painter.drawLine(QPointF(0.16, 0.18), QPointF(0.16, 0.24));
    painter.drawLine(QPointF(0.46, 0.18), QPointF(0.46, 0.24));
}

/// A sheet with a turned corner, a plan on it, and a red band for a title block. `place` is as high as the sheet.
void PaintSheet(QPainter& painter, const QRectF& place)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.height(), place.height());
    const double pen = std::max(0.02, 1.0 / place.height()), corner = 0.2;
    QPainterPath sheet(QPointF(0.04, 0.04));
    sheet.lineTo(kSheetWidth - corner, 0.04);
    sheet.lineTo(kSheetWidth - 0.04, 0.04 + corner - 0.04);
    sheet.lineTo(kSheetWidth - 0.04, 0.96);
    sheet.lineTo(0.04, 0.96);
    sheet.closeSubpath();
    painter.setPen(QPen(kBlue.darker(130), pen));
    painter.setBrush(kPaper);
    painter.drawPath(sheet);
    QPainterPath fold(QPointF(kSheetWidth - corner, 0.04));
    fold.lineTo(kSheetWidth - corner, corner);
    fold.lineTo(kSheetWidth - 0.04, corner);
    fold.closeSubpath();
    painter.setBrush(kFold);
    painter.drawPath(fold);
    PaintPlan(painter, pen);
    painter.fillRect(QRectF(0.04 + pen / 2, 0.70, kSheetWidth - 0.08 - pen, 0.18), kRed);
    painter.restore();
}

/// Largest font, up to `height` pixels, in which `text` is at most `width` wide.
QFont FontFor(const QFont& family, const QString& text, double height, double width)
{
    QFont font = family;
    font.setPixelSize(std::max(4, static_cast<int>(height)));
    const int taken = QFontMetrics(font).horizontalAdvance(text);
    if (taken > width)
        font.setPixelSize(std::max(4, static_cast<int>(font.pixelSize() * width / taken)));
    return font;
}

void PaintLogo(QPainter& painter, const QRectF& place, const QWidget& owner)
{
    const double height = std::min(place.height(), place.width() / 3);
    const QString maker = QStringLiteral("Tarnwick"), product = QStringLiteral("Sheetmaker PDF");
    const double width = place.width() - height * (kSheetWidth + 0.2);
    QFont strong = owner.font();
    strong.setBold(true);
    strong = FontFor(strong, maker, height * 0.42, width);
    const QFont plain = FontFor(owner.font(), product, height * 0.27, width);
    const double text =
        std::max(QFontMetricsF(strong).horizontalAdvance(maker), QFontMetricsF(plain).horizontalAdvance(product));
    const double whole = height * (kSheetWidth + 0.2) + text;
    const QRectF mark(place.left() + (place.width() - whole) / 2, place.top() + (place.height() - height) / 2,
                      height * kSheetWidth, height);
    PaintSheet(painter, mark);
    const QRectF words(mark.right() + height * 0.2, mark.top(), text + 1, height);
    painter.setPen(owner.palette().color(QPalette::WindowText));
    painter.setFont(strong);
    painter.drawText(words.adjusted(0, height * 0.1, 0, -height * 0.42), Qt::AlignLeft | Qt::AlignVCenter, maker);
    painter.setFont(plain);
    painter.drawText(words.adjusted(0, height * 0.58, 0, -height * 0.08), Qt::AlignLeft | Qt::AlignVCenter, product);
}

/// A yellow triangle with an exclamation mark.
void PaintOwnWarning(QPainter& painter, const QRectF& square)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width(), square.height());
    QPainterPath triangle(QPointF(0.5, 0.10));
    triangle.lineTo(0.93, 0.88);
    triangle.lineTo(0.07, 0.88);
    triangle.closeSubpath();
    painter.setPen(QPen(kAmber.darker(160), 0.06, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(kAmber);
    painter.drawPath(triangle);
    painter.setPen(QPen(Qt::black, 0.085, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0.5, 0.38), QPointF(0.5, 0.60));
    painter.drawPoint(QPointF(0.5, 0.76));
    painter.restore();
}

/// The desktop's own sign, unless that would come out smaller than the texts beside it.
void PaintWarning(QPainter& painter, const QRect& square, const QWidget& owner)
{
    const QIcon icon = owner.style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, &owner);
    if (icon.actualSize(square.size()).height() < square.height() * 4 / 5)
        PaintOwnWarning(painter, square);
    else
        icon.paint(&painter, square);
}

} // namespace

void PaintPicture(QPainter& painter, const std::string& picture, const QRect& place, const QWidget& owner)
{
    if (picture == "logo")
        return PaintLogo(painter, place, owner);
    if (picture != "warning")
        return;
    const int side = std::min(place.width(), place.height());
    PaintWarning(painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, {side, side}, place), owner);
}

QString PictureName(const std::string& picture)
{
    if (picture == "logo")
        return QStringLiteral("Tarnwick, on the web");
    return picture == "warning" ? QStringLiteral("Warning") : QString();
}

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        PaintSheet(painter, QRectF(side * (1 - kSheetWidth) / 2, 0, side * kSheetWidth, side));
        painter.end();
        icon.addPixmap(pixmap);
    }
    return QIcon::fromTheme(QStringLiteral("sheetmaker-pdf"), icon);
}

} // namespace sm::qt
