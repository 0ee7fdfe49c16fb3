// SPDX-License-Identifier: GPL-3.0-or-later
// What the drawing's view hears of mouse and keyboard.
#include "view/DrawingView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <optional>

namespace sm::qt {
namespace {

using scene::MouseButton;
using scene::ViewKey;

Vec2 PlaceOf(const QPointF& point)
{
    return {point.x(), point.y()};
}

bool Suspends(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier) != 0;
}

std::optional<MouseButton> ButtonOf(const QMouseEvent& event)
{
    switch (event.button()) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::MiddleButton:
        return MouseButton::Middle;
    case Qt::RightButton:
        return MouseButton::Right;
    default:
        return std::nullopt;
    }
}

std::optional<ViewKey> KeyOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return ViewKey::Left;
    case Qt::Key_Right:
        return ViewKey::Right;
    case Qt::Key_Up:
        return ViewKey::Up;
    case Qt::Key_Down:
        return ViewKey::Down;
    case Qt::Key_Plus:
        return ViewKey::ZoomIn;
    case Qt::Key_Minus:
        return ViewKey::ZoomOut;
    case Qt::Key_Home:
        return ViewKey::Home;
    case Qt::Key_W:
        return ViewKey::ZoomWindow;
    default:
        return std::nullopt;
    }
}

} // namespace

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    if (const auto button = ButtonOf(*event))
        Press(*button, PlaceOf(event->position()), Suspends(event->modifiers()));
}

void DrawingView::mouseMoveEvent(QMouseEvent* event)
{
    Move(PlaceOf(event->position()), (event->buttons() & Qt::LeftButton) != 0, Suspends(event->modifiers()));
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event)
{
    if (const auto button = ButtonOf(*event))
        Release(*button, PlaceOf(event->position()), Suspends(event->modifiers()));
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (const auto button = ButtonOf(*event))
        PressTwice(*button, PlaceOf(event->position()), Suspends(event->modifiers()));
}

void DrawingView::wheelEvent(QWheelEvent* event)
{
    if (Shown() == nullptr)
        return;
    constexpr double kNotch = 120;
    Wheel(PlaceOf(event->position()), event->angleDelta().y() / kNotch);
    event->accept();
}

void DrawingView::keyPressEvent(QKeyEvent* event)
{
    if (const auto key = KeyOf(event->key()))
        return Key(*key);
    if (event->key() == Qt::Key_Shift)
        return Refresh(true);
    if (event->key() == Qt::Key_Escape && IsZoomWindow())
        return SetZoomWindow(false);
    if (event->key() == Qt::Key_Escape || !onKey || !onKey(event))
        QWidget::keyPressEvent(event);
}

void DrawingView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift)
        Refresh(false);
    QWidget::keyReleaseEvent(event);
}

void DrawingView::leaveEvent(QEvent*)
{
    Leave();
}

} // namespace sm::qt
