// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/DrawingView.h"

#include "marks/PickMarks.h"

#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace sm::qt {
namespace {

constexpr double kAperture = 10; // pixels

} // namespace

DrawingView::DrawingView()
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(240, 160);
    setAccessibleName("Drawing");
    setAccessibleDescription("Shows the layout; points are picked with the left mouse button or typed as x,y");
    m_renderer = std::make_unique<ViewRenderer>([this](const QImage& image, const ViewMap& map, bool finished) {
        QMetaObject::invokeMethod(
            this, [this, image, map, finished] { Take(image, map, finished); }, Qt::QueuedConnection);
    });
}

DrawingView::~DrawingView()
{
    m_renderer.reset();
}

ViewMap DrawingView::DeviceMap() const
{
    return m_map.Enlarged(devicePixelRatioF());
}

void DrawingView::Ask()
{
    if (m_picture != nullptr && isVisible())
        m_renderer->Ask(m_picture, DeviceMap(), m_backdrop);
    update();
}

void DrawingView::Take(const QImage& image, const ViewMap& map, bool finished)
{
    if (m_picture == nullptr)
        return;
    m_image = image;
    m_image.setDevicePixelRatio(devicePixelRatioF());
    m_imageMap = map;
    m_isWhole = finished;
    update();
    if (IsPainted() && onPainted)
        onPainted();
}

void DrawingView::SetPicture(std::shared_ptr<const LayoutPicture> picture)
{
    m_picture = std::move(picture);
    m_image = {};
    m_isWhole = false;
    m_snap.reset();
    if (m_picture == nullptr)
        m_renderer->Ask(nullptr, {}, m_backdrop);
    ShowAll();
}

void DrawingView::SetBand(std::optional<Vec2> first)
{
    m_band = first;
    update();
}

void DrawingView::SetPicking(bool picking)
{
    m_picking = picking;
    SetZoomWindow(false);
    Refresh(QGuiApplication::keyboardModifiers());
}

void DrawingView::SetZoomWindow(bool isWanted)
{
    m_isZoomWindow = isWanted && m_picture != nullptr;
    m_zoomFrom.reset();
    setCursor(m_isZoomWindow ? Qt::CrossCursor : m_picking ? Qt::BlankCursor : Qt::ArrowCursor);
    Refresh(QGuiApplication::keyboardModifiers());
    if (onZoomWindow)
        onZoomWindow(m_isZoomWindow);
}

void DrawingView::SetBackdrop(Backdrop backdrop)
{
    if (m_backdrop == backdrop)
        return;
    m_backdrop = backdrop;
    m_image = {};
    m_isWhole = false;
    Ask();
}

void DrawingView::SetSnapping(bool snapping)
{
    m_snapping = snapping;
    Refresh(QGuiApplication::keyboardModifiers());
}

void DrawingView::ShowAll()
{
    m_map.width = std::max(1, width());
    m_map.height = std::max(1, height());
    m_isFresh = true;
    if (m_picture != nullptr)
        m_map.Fit(m_picture->home);
    Ask();
    Refresh(QGuiApplication::keyboardModifiers());
}

void DrawingView::SetMap(const ViewMap& map)
{
    m_map = map;
    m_map.width = std::max(1, width());
    m_map.height = std::max(1, height());
    m_isFresh = false;
    Ask();
    Refresh(QGuiApplication::keyboardModifiers());
}

void DrawingView::Zoom(double factor)
{
    if (m_picture == nullptr)
        return;
    ViewMap map = m_map;
    map.ZoomAbout({width() / 2.0, height() / 2.0}, factor, m_picture->home);
    SetMap(map);
}

void DrawingView::ZoomTo(Vec2 from, Vec2 to)
{
    const Vec2 a = m_map.ToScene(from), b = m_map.ToScene(to);
    ViewMap map = m_map;
    const double factor = std::min(width() / std::abs(to.x - from.x), height() / std::abs(to.y - from.y));
    map.center = (a + b) * 0.5;
    map.ZoomAbout({width() / 2.0, height() / 2.0}, factor, m_picture->home);
    SetMap(map);
}

void DrawingView::showEvent(QShowEvent*)
{
    Ask();
}

void DrawingView::resizeEvent(QResizeEvent*)
{
    m_isFresh ? ShowAll() : SetMap(m_map);
}

void DrawingView::Refresh(Qt::KeyboardModifiers modifiers)
{
    if (m_cursor)
        Follow(*m_cursor, modifiers);
    update();
}

void DrawingView::Follow(Vec2 pixel, Qt::KeyboardModifiers modifiers)
{
    m_cursor = pixel;
    m_snap.reset();
    const bool suspended = (modifiers & Qt::ShiftModifier) != 0;
    if (m_picking && m_snapping && !suspended && !m_isZoomWindow && m_picture != nullptr)
        m_snap = m_picture->snaps.Find(m_map.ToScene(pixel), kAperture / m_map.scale);
    if (onMove)
        onMove(PointAtCursor());
    update();
}

Vec2 DrawingView::PointAtCursor() const
{
    return m_snap ? m_snap->point : m_map.ToScene(m_cursor.value_or(Vec2{}));
}

// What was painted last is shown where it belongs by now: moved or scaled until the new picture is there.
void DrawingView::PaintDrawing(QPainter& painter) const
{
    const BackdropColors& colors = ColorsOf(m_backdrop);
    painter.fillRect(rect(), QColor(m_picture != nullptr && m_picture->paper ? colors.desk : colors.sheet));
    if (m_image.isNull())
        return;
    const double ratio = devicePixelRatioF();
    const Vec2 corner = m_map.ToPixel(m_imageMap.ToScene({0, 0}));
    if (std::abs(m_imageMap.scale - m_map.scale * ratio) <= 1e-9 * m_imageMap.scale) {
        painter.drawImage(QPointF(std::round(corner.x * ratio) / ratio, std::round(corner.y * ratio) / ratio), m_image);
        return;
    }
    const double factor = m_map.scale / m_imageMap.scale;
    painter.drawImage(QRectF(corner.x, corner.y, m_image.width() * factor, m_image.height() * factor), m_image);
}

void DrawingView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintDrawing(painter);
    if (paintOver)
        paintOver(painter);
    if (m_isZoomWindow && m_cursor) {
        if (m_zoomFrom)
            PaintRubberBand(painter, *m_zoomFrom, *m_cursor);
        return;
    }
    if (!m_picking || !m_cursor || m_grip)
        return;
    const Vec2 at = m_map.ToPixel(PointAtCursor());
    if (m_band)
        PaintRubberBand(painter, m_map.ToPixel(*m_band), at);
    PaintCrossHair(painter, *m_cursor, width(), height(), QColor(ColorsOf(m_backdrop).cross));
    if (m_snap)
        PaintSnapMark(painter, m_snap->kind, at, width());
}

} // namespace sm::qt
