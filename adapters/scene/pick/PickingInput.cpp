// SPDX-License-Identifier: GPL-3.0-or-later
// What a view does on mouse and keyboard.
#include "scene/PickingView.h"

#include <cmath>

namespace sm::scene {
namespace {

constexpr double kDragged = 12;   // pixels that a held button must move for its release to count
constexpr double kLeastFrame = 4; // pixels
constexpr double kWheelStep = 1.25;
constexpr double kKeyStep = 1.5;
constexpr double kPanPart = 0.1; // of the view, for an arrow key

bool IsDrag(Vec2 from, Vec2 to)
{
    return std::hypot(to.x - from.x, to.y - from.y) > kDragged;
}

} // namespace

void PickingView::Press(MouseButton button, Vec2 at, bool isSuspended)
{
    if (button == MouseButton::Middle) {
        m_grip = at;
        return;
    }
    if (button == MouseButton::Right && m_isZoomWindow)
        return SetZoomWindow(false);
    if (button == MouseButton::Right && m_picking && onCancel)
        return onCancel();
    if (button == MouseButton::Left && m_isZoomWindow)
        return TakeZoomCorner(at);
    if (button == MouseButton::Left && !m_picking && marks.press)
        return marks.press(at);
    if (button != MouseButton::Left || !m_picking || m_picture == nullptr)
        return;
    Follow(at, isSuspended);
    if (onPick)
        onPick(PointAtCursor());
    m_pressed = at;
}

void PickingView::Move(Vec2 at, bool isLeftDown, bool isSuspended)
{
    if (m_grip) {
        ViewMap map = m_map;
        map.MoveBy(at - *m_grip);
        m_grip = at;
        m_cursor = at;
        SetMap(map);
    } else {
        Follow(at, isSuspended);
        if (isLeftDown && !m_picking && marks.move)
            marks.move(at);
    }
}

// A frame may be drawn in one go as well as by two presses; one without breadth is no frame yet.
void PickingView::TakeZoomCorner(Vec2 at)
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
void PickingView::Release(MouseButton button, Vec2 at, bool isSuspended)
{
    if (button == MouseButton::Middle)
        m_grip.reset();
    if (button == MouseButton::Left && m_isZoomWindow && m_zoomFrom && IsDrag(*m_zoomFrom, at))
        return TakeZoomCorner(at);
    if (button == MouseButton::Left && !m_picking && marks.release)
        return marks.release(at);
    if (button != MouseButton::Left || !m_pressed)
        return;
    const bool dragged = IsDrag(*m_pressed, at);
    m_pressed.reset();
    if (dragged && m_band && m_picking && onPick) {
        Follow(at, isSuspended);
        onPick(PointAtCursor());
    }
}

void PickingView::PressTwice(MouseButton button, Vec2 at, bool isSuspended)
{
    m_grip.reset();
    if (button == MouseButton::Middle)
        ShowAll();
    else if (button == MouseButton::Left && !m_picking && !m_isZoomWindow && marks.twice)
        marks.twice(at);
    else if (!m_band && !m_isZoomWindow) // a rectangle doesn't end where it began
        Press(button, at, isSuspended);
}

void PickingView::Wheel(Vec2 at, double notches)
{
    if (m_picture == nullptr)
        return;
    ViewMap map = m_map;
    map.ZoomAbout(at, std::pow(kWheelStep, notches), m_picture->home);
    m_cursor = at;
    SetMap(map);
}

void PickingView::Key(ViewKey key)
{
    ViewMap map = m_map;
    const double x = std::round(Room().Width() * kPanPart);
    const double y = std::round(Room().Height() * kPanPart);
    switch (key) {
    case ViewKey::Left:
        map.MoveBy({x, 0});
        return SetMap(map);
    case ViewKey::Right:
        map.MoveBy({-x, 0});
        return SetMap(map);
    case ViewKey::Up:
        map.MoveBy({0, y});
        return SetMap(map);
    case ViewKey::Down:
        map.MoveBy({0, -y});
        return SetMap(map);
    case ViewKey::ZoomIn:
        return Zoom(kKeyStep);
    case ViewKey::ZoomOut:
        return Zoom(1 / kKeyStep);
    case ViewKey::Home:
        return ShowAll();
    case ViewKey::ZoomWindow:
        return SetZoomWindow(!m_isZoomWindow);
    }
}

void PickingView::Leave()
{
    m_cursor.reset();
    m_snap.reset();
    if (onMove)
        onMove(std::nullopt);
    Redraw();
}

} // namespace sm::scene
