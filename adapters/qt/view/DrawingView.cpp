// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/DrawingView.h"

#include "view/PickMarks.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace sm::qt {
namespace {

constexpr double kAperture = 10; // pixels
constexpr double kDragged = 12;  // pixels that a held button must move for its release to be a pick
constexpr double kWheelStep = 1.25;
constexpr double kKeyStep = 1.5;
constexpr double kPanPart = 0.1; // of the view, for an arrow key

Vec2 PlaceOf(const QPointF& point)
{
    return {point.x(), point.y()};
}

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
        m_renderer->Ask(m_picture, DeviceMap());
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
        m_renderer->Ask(nullptr, {});
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
    setCursor(picking ? Qt::BlankCursor : Qt::ArrowCursor);
    Refresh(QGuiApplication::keyboardModifiers());
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
    if (m_picking && m_snapping && !suspended && m_picture != nullptr)
        m_snap = m_picture->snaps.Find(m_map.ToScene(pixel), kAperture / m_map.scale);
    if (onMove)
        onMove(PointAtCursor());
    update();
}

Vec2 DrawingView::PointAtCursor() const
{
    return m_snap ? m_snap->point : m_map.ToScene(m_cursor.value_or(Vec2{}));
}

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    const Vec2 at = PlaceOf(event->position());
    if (event->button() == Qt::MiddleButton) {
        m_grip = at;
        return;
    }
    if (event->button() == Qt::RightButton && m_picking && onCancel)
        return onCancel();
    if (event->button() != Qt::LeftButton || !m_picking || m_picture == nullptr)
        return;
    Follow(at, event->modifiers());
    if (onPick)
        onPick(PointAtCursor());
    m_pressed = at;
}

void DrawingView::mouseMoveEvent(QMouseEvent* event)
{
    const Vec2 at = PlaceOf(event->position());
    if (m_grip) {
        ViewMap map = m_map;
        map.MoveBy(at - *m_grip);
        m_grip = at;
        m_cursor = at;
        SetMap(map);
    } else {
        Follow(at, event->modifiers());
    }
}

// A rectangle may be drawn in one go: pressed at its first corner, released at the other.
void DrawingView::mouseReleaseEvent(QMouseEvent* event)
{
    const Vec2 at = PlaceOf(event->position());
    if (event->button() == Qt::MiddleButton)
        m_grip.reset();
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    const bool dragged = std::hypot(at.x - m_pressed->x, at.y - m_pressed->y) > kDragged;
    m_pressed.reset();
    if (dragged && m_band && m_picking && onPick) {
        Follow(at, event->modifiers());
        onPick(PointAtCursor());
    }
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_grip.reset();
    if (event->button() == Qt::MiddleButton)
        ShowAll();
    else if (!m_band) // a rectangle doesn't end where it began
        mousePressEvent(event);
}

void DrawingView::wheelEvent(QWheelEvent* event)
{
    if (m_picture == nullptr)
        return;
    constexpr double kNotch = 120;
    const double notches = event->angleDelta().y() / kNotch;
    ViewMap map = m_map;
    map.ZoomAbout(PlaceOf(event->position()), std::pow(kWheelStep, notches), m_picture->home);
    m_cursor = PlaceOf(event->position());
    SetMap(map);
    event->accept();
}

void DrawingView::keyPressEvent(QKeyEvent* event)
{
    ViewMap map = m_map;
    const double x = std::round(width() * kPanPart);
    const double y = std::round(height() * kPanPart);
    switch (event->key()) {
    case Qt::Key_Left:
        map.MoveBy({x, 0});
        return SetMap(map);
    case Qt::Key_Right:
        map.MoveBy({-x, 0});
        return SetMap(map);
    case Qt::Key_Up:
        map.MoveBy({0, y});
        return SetMap(map);
    case Qt::Key_Down:
        map.MoveBy({0, -y});
        return SetMap(map);
    case Qt::Key_Plus:
        return Zoom(kKeyStep);
    case Qt::Key_Minus:
        return Zoom(1 / kKeyStep);
    case Qt::Key_Home:
        return ShowAll();
    case Qt::Key_Shift:
        return Refresh(Qt::ShiftModifier);
    default:
        if (!onKey || !onKey(event))
            QWidget::keyPressEvent(event);
    }
}

void DrawingView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift)
        Refresh(Qt::NoModifier);
    QWidget::keyReleaseEvent(event);
}

void DrawingView::leaveEvent(QEvent*)
{
    m_cursor.reset();
    m_snap.reset();
    if (onMove)
        onMove(std::nullopt);
    update();
}

// What was painted last is shown where it belongs by now: moved or scaled until the new picture is there.
void DrawingView::PaintDrawing(QPainter& painter) const
{
    painter.fillRect(rect(), m_picture != nullptr && m_picture->paper ? QColor(0xC8, 0xCC, 0xD0) : QColor(Qt::white));
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
    if (!m_picking || !m_cursor || m_grip)
        return;
    const Vec2 at = m_map.ToPixel(PointAtCursor());
    if (m_band)
        PaintRubberBand(painter, m_map.ToPixel(*m_band), at);
    PaintCrossHair(painter, *m_cursor, width(), height());
    if (m_snap)
        PaintSnapMark(painter, m_snap->kind, at, width());
}

} // namespace sm::qt
