// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/DrawingView.h"

#include "marks/PickMarks.h"
#include "picture/QtPixelCanvas.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>

namespace sm::qt {

DrawingView::DrawingView() : PickingView(CreateQtCanvases())
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(240, 160);
    setAccessibleName("Drawing");
    setAccessibleDescription("Shows the layout; points are picked with the left mouse button or typed as x,y");
}

DrawingView::~DrawingView()
{
    StopPainting();
}

void DrawingView::Post(std::function<void()> work)
{
    QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
}

void DrawingView::ShowPointer(scene::ViewPointer pointer)
{
    setCursor(pointer == scene::ViewPointer::Cross  ? Qt::CrossCursor
              : pointer == scene::ViewPointer::None ? Qt::BlankCursor
                                                    : Qt::ArrowCursor);
}

bool DrawingView::IsSuspended() const
{
    return (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) != 0;
}

void DrawingView::showEvent(QShowEvent*)
{
    Ask();
}

void DrawingView::resizeEvent(QResizeEvent*)
{
    Resized();
}

// What was painted last is shown where it belongs by now: moved or scaled until the new picture is there.
void DrawingView::PaintDrawing(QPainter& painter) const
{
    painter.fillRect(rect(), QColor(Ground()));
    if (Image() == nullptr)
        return;
    const scene::PixelImage& pixels = *Image();
    QImage image(reinterpret_cast<const uchar*>(pixels.Row(0)), pixels.Width(), pixels.Height(), 4 * pixels.Width(),
                 QImage::Format_RGB32);
    const double ratio = devicePixelRatioF();
    image.setDevicePixelRatio(ratio);
    const Vec2 corner = Map().ToPixel(ImageMap().ToScene({0, 0}));
    if (std::abs(ImageMap().scale - Map().scale * ratio) <= 1e-9 * ImageMap().scale) {
        painter.drawImage(QPointF(std::round(corner.x * ratio) / ratio, std::round(corner.y * ratio) / ratio), image);
        return;
    }
    const double factor = Map().scale / ImageMap().scale;
    painter.drawImage(QRectF(corner.x, corner.y, image.width() * factor, image.height() * factor), image);
}

void DrawingView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintDrawing(painter);
    if (paintOver)
        paintOver(painter);
    const scene::ViewOverlay over = Overlay();
    if (over.band)
        PaintRubberBand(painter, over.band->first, over.band->second);
    if (over.cross)
        PaintCrossHair(painter, *over.cross, width(), height(), QColor(ColorsOf(OnBackdrop()).cross));
    if (over.mark)
        PaintSnapMark(painter, over.mark->kind, over.mark->point, width());
}

} // namespace sm::qt
