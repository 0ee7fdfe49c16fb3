// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the drawing window that shows the drawing, and follows the mouse.
#pragma once

#include "scene/PickingView.h"

#include <QWidget>
#include <functional>

namespace sm::qt {

using scene::Backdrop;
using scene::LayoutPicture;
using scene::ViewMap;

class DrawingView final : public QWidget, public scene::PickingView {
public:
    DrawingView();
    ~DrawingView() override;

    std::function<bool(QKeyEvent*)> onKey;    ///< keys of nobody else; true: used
    std::function<void(QPainter&)> paintOver; ///< over the drawing, by `Map`

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void Redraw() override { update(); }
    void ShowPointer(scene::ViewPointer pointer) override;
    void Post(std::function<void()> work) override;
    [[nodiscard]] bool IsShown() const override { return isVisible(); }
    [[nodiscard]] scene::PixelBox Room() const override { return {0, 0, width(), height()}; }
    [[nodiscard]] double PixelRatio() const override { return devicePixelRatioF(); }
    [[nodiscard]] bool IsSuspended() const override;
    void PaintDrawing(QPainter& painter) const;
};

} // namespace sm::qt
