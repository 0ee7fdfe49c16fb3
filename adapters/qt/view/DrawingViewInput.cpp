// SPDX-License-Identifier: GPL-3.0-or-later
// What the drawing's view does on mouse and keyboard.
#include "view/DrawingView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>

namespace sm::qt {
namespace {

constexpr double kDragged = 12;   // pixels that a held button must move for its release to count
constexpr double kLeastFrame = 4; // pixels
constexpr double kWheelStep = 1.25;
constexpr double kKeyStep = 1.5;
constexpr double kPanPart = 0.1; // of the view, for an arrow key

Vec2 PlaceOf(const QPointF& point)
{
    return {point.x(), point.y()};
}

bool IsDrag(Vec2 from, Vec2 to)
{
    return std::hypot(to.x - from.x, to.y - from.y) > kDragged;
}

} // namespace

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    const Vec2 at = PlaceOf(event->position());
    if (event->button() == Qt::MiddleButton) {
        m_grip = at;
        return;
    }
    if (event->button() == Qt::RightButton && m_isZoomWindow)
        return SetZoomWindow(false);
    if (event->button() == Qt::RightButton && m_picking && onCancel)
        return onCancel();
    if (event->button() == Qt::LeftButton && m_isZoomWindow)
        return TakeZoomCorner(at);
    if (event->button() == Qt::LeftButton && !m_picking && marks.press)
        return marks.press(at);
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
        if ((event->buttons() & Qt::LeftButton) != 0 && !m_picking && marks.move)
            marks.move(at);
    }
}

// A frame may be drawn in one go as well as by two presses; one without breadth is no frame yet.
void DrawingView::TakeZoomCorner(Vec2 at)
{
    if (!m_zoomFrom) {
        m_zoomFrom = m_cursor = at;
        return;
    }
    const Vec2 from = *m_zoomFrom;
    if (std::abs(from.x - at.x) < kLeastFrame || std::abs(from.y - at.y) < kLeastFrame)
        return;
    SetZoomWindow(false);
    ZoomTo(from, at);
}

// A rectangle may be drawn in one go: pressed at its first corner, released at the other.
void DrawingView::mouseReleaseEvent(QMouseEvent* event)
{
    const Vec2 at = PlaceOf(event->position());
    if (event->button() == Qt::MiddleButton)
        m_grip.reset();
    if (event->button() == Qt::LeftButton && m_isZoomWindow && m_zoomFrom && IsDrag(*m_zoomFrom, at))
        return TakeZoomCorner(at);
    if (event->button() == Qt::LeftButton && !m_picking && marks.release)
        return marks.release(at);
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    const bool dragged = IsDrag(*m_pressed, at);
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
    else if (event->button() == Qt::LeftButton && !m_picking && !m_isZoomWindow && marks.twice)
        marks.twice(PlaceOf(event->position()));
    else if (!m_band && !m_isZoomWindow) // a rectangle doesn't end where it began
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
    case Qt::Key_W:
        return SetZoomWindow(!m_isZoomWindow);
    case Qt::Key_Escape:
        if (m_isZoomWindow)
            return SetZoomWindow(false);
        return QWidget::keyPressEvent(event);
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

} // namespace sm::qt
