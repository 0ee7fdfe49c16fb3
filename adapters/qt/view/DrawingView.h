// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the drawing window that shows the drawing, and follows the mouse.
#pragma once

#include "view/LayoutPicture.h"
#include "view/ViewRenderer.h"

#include <QImage>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

namespace sm::qt {

class DrawingView final : public QWidget {
public:
    DrawingView();
    ~DrawingView() override;

    /// Shows the picture, all of it; null shows nothing.
    void SetPicture(std::shared_ptr<const LayoutPicture> picture);
    /// A place of the scene that a rubber band starts from.
    void SetBand(std::optional<Vec2> first);
    /// Points are taken from here on, or no longer.
    void SetPicking(bool picking);
    void SetSnapping(bool snapping);
    [[nodiscard]] bool Snapping() const { return m_snapping; }
    /// Where a press would pick, scene; nothing while the cursor is elsewhere or nothing is picked.
    [[nodiscard]] std::optional<Vec2> Cursor() const
    {
        return m_picking && m_cursor && !m_grip ? std::optional(PointAtCursor()) : std::nullopt;
    }
    /// The snap that is in force at the cursor.
    [[nodiscard]] const std::optional<Snap>& AtSnap() const { return m_snap; }

    void SetBackdrop(Backdrop backdrop);
    [[nodiscard]] Backdrop OnBackdrop() const { return m_backdrop; }
    /// The next rectangle that is drawn is what the view shows then; the right button, Escape or false give that up.
    void SetZoomWindow(bool isWanted);

    void ShowAll();
    /// About the middle of the view.
    void Zoom(double factor);
    [[nodiscard]] const ViewMap& Map() const { return m_map; }
    void SetMap(const ViewMap& map);
    /// The map once the user moved or zoomed.
    [[nodiscard]] std::optional<ViewMap> OwnMap() const { return m_isFresh ? std::nullopt : std::optional(m_map); }
    /// True when everything is painted that the view shows.
    [[nodiscard]] bool IsPainted() const { return m_isWhole && m_imageMap == DeviceMap(); }

    std::function<void(Vec2)> onPick;                ///< scene millimetres
    std::function<void(std::optional<Vec2>)> onMove; ///< nothing: the cursor left
    std::function<bool(QKeyEvent*)> onKey;           ///< keys of nobody else; true: used
    std::function<void()> onCancel;                  ///< the right button was pressed
    std::function<void(bool isWanted)> onZoomWindow; ///< a frame to zoom to is wanted, or no longer
    std::function<void()> onPainted;                 ///< the view is whole
    /// The left button while no point is picked, pixels: pressed, moved while it is down, released, pressed twice.
    struct MarkHooks {
        std::function<void(Vec2)> press{}, move{}, release{}, twice{};
    };
    MarkHooks marks;
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
    [[nodiscard]] ViewMap DeviceMap() const;
    void Ask();
    void Take(const QImage& image, const ViewMap& map, bool finished);
    void Follow(Vec2 pixel, Qt::KeyboardModifiers modifiers);
    void Refresh(Qt::KeyboardModifiers modifiers);
    [[nodiscard]] Vec2 PointAtCursor() const;
    void PaintDrawing(QPainter& painter) const;
    void TakeZoomCorner(Vec2 at);
    void ZoomTo(Vec2 from, Vec2 to);

    std::shared_ptr<const LayoutPicture> m_picture;
    ViewMap m_map;
    bool m_isFresh = true; ///< nobody moved or zoomed: a larger window shows the whole as well
    QImage m_image;
    ViewMap m_imageMap; ///< device pixels
    bool m_isWhole = false;
    bool m_picking = false, m_snapping = true;
    std::optional<Vec2> m_band;    ///< scene
    std::optional<Vec2> m_cursor;  ///< pixels
    std::optional<Vec2> m_grip;    ///< pixels, where the picture is held while it is dragged
    std::optional<Vec2> m_pressed; ///< pixels, of a pick whose button is still down
    std::optional<Snap> m_snap;
    Backdrop m_backdrop = Backdrop::Light;
    bool m_isZoomWindow = false;
    std::optional<Vec2> m_zoomFrom; ///< pixels, the first corner of the frame to zoom to
    std::unique_ptr<ViewRenderer> m_renderer;
};

} // namespace sm::qt
