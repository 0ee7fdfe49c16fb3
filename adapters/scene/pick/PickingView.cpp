// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/PickingView.h"

#include <algorithm>
#include <cmath>

namespace sm::scene {
namespace {

constexpr double kAperture = 10; // pixels

} // namespace

PickingView::PickingView(std::unique_ptr<IPixelCanvases> canvases)
{
    const auto show = [this](std::shared_ptr<const PixelImage> image, const ViewMap& map, bool finished) {
        Post([this, image = std::move(image), map, finished] { Take(image, map, finished); });
    };
    m_renderer = std::make_unique<ViewRenderer>(std::move(canvases), show);
}

void PickingView::Ask()
{
    if (m_picture != nullptr && IsShown())
        m_renderer->Ask(m_picture, DeviceMap(), m_backdrop);
    Redraw();
}

void PickingView::Take(std::shared_ptr<const PixelImage> image, const ViewMap& map, bool finished)
{
    if (m_picture == nullptr)
        return;
    m_image = std::move(image);
    m_imageMap = map;
    m_isWhole = finished;
    Redraw();
    if (IsPainted() && onPainted)
        onPainted();
}

void PickingView::DropImage()
{
    m_image.reset();
    m_isWhole = false;
}

void PickingView::SetPicture(std::shared_ptr<const LayoutPicture> picture)
{
    m_picture = std::move(picture);
    DropImage();
    m_snap.reset();
    if (m_picture == nullptr)
        m_renderer->Ask(nullptr, {}, m_backdrop);
    ShowAll();
}

void PickingView::SetBand(std::optional<Vec2> first)
{
    m_band = first;
    Redraw();
}

void PickingView::SetPicking(bool picking)
{
    m_picking = picking;
    SetZoomWindow(false);
    Refresh(IsSuspended());
}

void PickingView::SetZoomWindow(bool isWanted)
{
    m_isZoomWindow = isWanted && m_picture != nullptr;
    m_zoomFrom.reset();
    ShowPointer(m_isZoomWindow ? ViewPointer::Cross : m_picking ? ViewPointer::None : ViewPointer::Arrow);
    Refresh(IsSuspended());
    if (onZoomWindow)
        onZoomWindow(m_isZoomWindow);
}

void PickingView::SetBackdrop(Backdrop backdrop)
{
    if (m_backdrop == backdrop)
        return;
    m_backdrop = backdrop;
    DropImage();
    Ask();
}

void PickingView::SetSnapping(bool snapping)
{
    m_snapping = snapping;
    Refresh(IsSuspended());
}

void PickingView::FitRoom()
{
    m_map.width = std::max(1, Room().Width());
    m_map.height = std::max(1, Room().Height());
}

void PickingView::ShowAll()
{
    FitRoom();
    m_isFresh = true;
    if (m_picture != nullptr)
        m_map.Fit(m_picture->home);
    Ask();
    Refresh(IsSuspended());
}

void PickingView::SetMap(const ViewMap& map)
{
    m_map = map;
    FitRoom();
    m_isFresh = false;
    Ask();
    Refresh(IsSuspended());
}

void PickingView::Zoom(double factor)
{
    if (m_picture == nullptr)
        return;
    ViewMap map = m_map;
    map.ZoomAbout({Room().Width() / 2.0, Room().Height() / 2.0}, factor, m_picture->home);
    SetMap(map);
}

void PickingView::ZoomTo(Vec2 from, Vec2 to)
{
    const Vec2 a = m_map.ToScene(from), b = m_map.ToScene(to);
    const double width = Room().Width(), height = Room().Height();
    ViewMap map = m_map;
    const double factor = std::min(width / std::abs(to.x - from.x), height / std::abs(to.y - from.y));
    map.center = (a + b) * 0.5;
    map.ZoomAbout({width / 2, height / 2}, factor, m_picture->home);
    SetMap(map);
}

void PickingView::Refresh(bool isSuspended)
{
    if (m_cursor)
        Follow(*m_cursor, isSuspended);
    Redraw();
}

void PickingView::Follow(Vec2 pixel, bool isSuspended)
{
    m_cursor = pixel;
    m_snap.reset();
    if (m_picking && m_snapping && !isSuspended && !m_isZoomWindow && m_picture != nullptr)
        m_snap = m_picture->snaps.Find(m_map.ToScene(pixel), kAperture * Magnified() / m_map.scale);
    if (onMove)
        onMove(PointAtCursor());
    Redraw();
}

Vec2 PickingView::PointAtCursor() const
{
    return m_snap ? m_snap->point : m_map.ToScene(m_cursor.value_or(Vec2{}));
}

std::uint32_t PickingView::Ground() const
{
    const BackdropColors& colors = ColorsOf(m_backdrop);
    return m_picture != nullptr && m_picture->paper ? colors.desk : colors.sheet;
}

ViewOverlay PickingView::Overlay() const
{
    ViewOverlay over;
    if (m_isZoomWindow && m_cursor) {
        if (m_zoomFrom)
            over.band = {*m_zoomFrom, *m_cursor};
        return over;
    }
    if (!m_picking || !m_cursor || m_grip)
        return over;
    const Vec2 at = m_map.ToPixel(PointAtCursor());
    if (m_band)
        over.band = {m_map.ToPixel(*m_band), at};
    over.cross = *m_cursor;
    if (m_snap)
        over.mark = Snap{m_snap->kind, at};
    return over;
}

} // namespace sm::scene
