// SPDX-License-Identifier: GPL-3.0-or-later
// A real drawing window on a screen that isn't there, driven by events.
#pragma once

#include "cadhost/PointPicker.h"
#include "qt/DrawingWindow.h"

#include <QPointF>
#include <QString>
#include <QWidget>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <vector>

namespace sm::qt {

using Point = std::optional<Vec2>;

class DrawingWindowTest : public ::testing::Test {
protected:
    DrawingWindowTest();
    ~DrawingWindowTest() override;

    /// Opens a sample or a drawing written into the test.
    const drawing::Drawing& Open(const std::string& path);
    const drawing::Drawing& OpenText(const std::string& dxf);
    /// Runs `steps` once the window is up and has painted the drawing whole.
    Point PickPoint(std::size_t layout, const std::function<void()>& steps);
    Point PickCorner(std::size_t layout, Vec2 first, const std::function<void()>& steps);

    // For the steps.
    static QWidget& Window();
    static QWidget& View();
    static QString TextOf(const char* label);
    /// Runs events until the view shows all it is to show.
    static void Settle();
    /// Pixels of a point of the open drawing, by what the window says is under the mouse.
    QPointF PixelOf(Vec2 point);
    /// What the window says is there, snaps suspended.
    Vec2 PointAt(QPointF pixel);
    static void Move(QPointF pixel, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void Press(QPointF pixel, Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void Release(QPointF pixel, Qt::MouseButton button = Qt::LeftButton);
    static void Wheel(QPointF pixel, int notches);
    static void Key(Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void Type(const QString& text);
    /// Keeps what the window looks like among the build's screens.
    static void Shoot(const std::string& name);

    std::unique_ptr<cadhost::IPointPicker> picker;
    std::unique_ptr<drawing::Drawing> drawing;
    std::size_t active = 0; ///< the layout that the last point was picked in
};

} // namespace sm::qt
