// SPDX-License-Identifier: GPL-3.0-or-later
// A view of a layout that is moved, zoomed and picked in, whatever window shows it.
#pragma once

#include "scene/ViewRenderer.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace sm::scene {

enum class MouseButton { Left, Middle, Right };
enum class ViewKey { Left, Right, Up, Down, ZoomIn, ZoomOut, Home, ZoomWindow };
enum class ViewPointer { Arrow, Cross, None };

/// What is drawn over the drawing at the moment, pixels.
struct ViewOverlay {
    std::optional<std::pair<Vec2, Vec2>> band{};
    std::optional<Vec2> cross{};
    std::optional<Snap> mark{}; ///< its point in pixels
};

/// Belongs to the thread of its window, which tells it what the mouse and the keyboard do; pixels are the window's own,
/// from its upper left corner.
class PickingView {
public:
    virtual ~PickingView() = default;
    PickingView(const PickingView&) = delete;
    PickingView& operator=(const PickingView&) = delete;

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
    [[nodiscard]] bool IsZoomWindow() const { return m_isZoomWindow; }

    void ShowAll();
    /// About the middle of the view.
    void Zoom(double factor);
    [[nodiscard]] const ViewMap& Map() const { return m_map; }
    void SetMap(const ViewMap& map);
    /// The map once the user moved or zoomed.
    [[nodiscard]] std::optional<ViewMap> OwnMap() const { return m_isFresh ? std::nullopt : std::optional(m_map); }
    /// True when everything is painted that the view shows.
    [[nodiscard]] bool IsPainted() const { return m_isWhole && m_imageMap == DeviceMap(); }
    /// Paints the image and what is over it, soon.
    virtual void Redraw() = 0;

    std::function<void(Vec2)> onPick;                ///< scene millimetres
    std::function<void(std::optional<Vec2>)> onMove; ///< nothing: the cursor left
    std::function<void()> onCancel;                  ///< the right button was pressed
    std::function<void(bool isWanted)> onZoomWindow; ///< a frame to zoom to is wanted, or no longer
    std::function<void()> onPainted;                 ///< the view is whole
    /// The left button while no point is picked, pixels: pressed, moved while it is down, released, pressed twice.
    struct MarkHooks {
        std::function<void(Vec2)> press{}, move{}, release{}, twice{};
    };
    MarkHooks marks;

protected:
    explicit PickingView(std::unique_ptr<IPixelCanvases> canvases);
    /// Ends the painting; the window calls it before it goes.
    void StopPainting() { m_renderer.reset(); }

    virtual void ShowPointer(ViewPointer pointer) = 0;
    /// Runs `work` on the window's thread, unless the window goes before. Called from another thread.
    virtual void Post(std::function<void()> work) = 0;
    [[nodiscard]] virtual bool IsShown() const = 0;
    [[nodiscard]] virtual PixelBox Room() const = 0;
    /// Pixels of the painted image for one of the window's.
    [[nodiscard]] virtual double PixelRatio() const { return 1; }
    /// Pixels of the window that are as large as one of 96 to the inch.
    [[nodiscard]] virtual double Magnified() const { return 1; }
    /// The key that leaves snaps out is down.
    [[nodiscard]] virtual bool IsSuspended() const = 0;

    // What the window passes on. `isSuspended` is that key at the event.
    void Press(MouseButton button, Vec2 at, bool isSuspended);
    void Move(Vec2 at, bool isLeftDown, bool isSuspended);
    void Release(MouseButton button, Vec2 at, bool isSuspended);
    void PressTwice(MouseButton button, Vec2 at, bool isSuspended);
    void Wheel(Vec2 at, double notches);
    void Key(ViewKey key);
    void Leave();
    void Resized() { m_isFresh ? ShowAll() : SetMap(m_map); }
    void Refresh(bool isSuspended);
    /// Has what the view shows painted, when the window is shown.
    void Ask();

    [[nodiscard]] const std::shared_ptr<const LayoutPicture>& Shown() const { return m_picture; }
    /// What was painted last; null: nothing yet. It shows what `ImageMap` says.
    [[nodiscard]] const std::shared_ptr<const PixelImage>& Image() const { return m_image; }
    [[nodiscard]] const ViewMap& ImageMap() const { return m_imageMap; }
    [[nodiscard]] ViewOverlay Overlay() const;
    /// 0xRRGGBB round the picture.
    [[nodiscard]] std::uint32_t Ground() const;

private:
    [[nodiscard]] ViewMap DeviceMap() const { return m_map.Enlarged(PixelRatio()); }
    void Take(std::shared_ptr<const PixelImage> image, const ViewMap& map, bool finished);
    void DropImage();
    void FitRoom();
    void Follow(Vec2 pixel, bool isSuspended);
    [[nodiscard]] Vec2 PointAtCursor() const;
    void TakeZoomCorner(Vec2 at);
    void ZoomTo(Vec2 from, Vec2 to);

    std::shared_ptr<const LayoutPicture> m_picture;
    ViewMap m_map;
    bool m_isFresh = true; ///< nobody moved or zoomed: a larger window shows the whole as well
    std::shared_ptr<const PixelImage> m_image;
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

} // namespace sm::scene
