// SPDX-License-Identifier: GPL-3.0-or-later
#include "paint/PaintArea.h"

#include "picture/PixelPath.h"
#include "render/ClipArea.h"
#include "render/ClipBox.h"

#include <cmath>
#include <utility>

namespace sm::scene {
namespace {

constexpr double kFar = 8000;   // pixels off the image: what reaches further is cut first
constexpr double kBesides = 64; // pixels round the image that cut shapes keep

} // namespace

PaintArea::PaintArea(const DisplayList& list, const ViewMap& map, PixelImage& image, const PixelBox& region,
                     IPixelCanvas& canvas)
    : m_list(list), m_map(map), m_canvas(canvas), m_region(region.Common(image.All()))
{
    m_raster.pixels = image.Row(0);
    m_raster.stride = image.Width();
    const double left = m_region.left;
    const double top = m_region.top;
    m_box = {{left, top}, {left + m_region.Width(), top + m_region.Height()}};
    const Vec2 a = map.ToScene({m_box.min.x - 2, m_box.max.y + 2});
    const Vec2 b = map.ToScene({m_box.max.x + 2, m_box.min.y - 2});
    m_visible = {a, b};
    UseClip(0);
}

void PaintArea::UseClip(std::uint32_t number)
{
    m_clip = number;
    const Clip& clip = m_list.clips[number];
    m_isPlainClip = number == 0 || clip.rectangular;
    Box2 box = m_box;
    if (number != 0) {
        const Vec2 a = m_map.ToPixel({clip.box.min.x, clip.box.max.y});
        const Vec2 b = m_map.ToPixel({clip.box.max.x, clip.box.min.y});
        box = render::Intersection(m_box, {{std::floor(a.x), std::floor(a.y)}, {std::ceil(b.x), std::ceil(b.y)}});
    }
    m_isClippedAway = box.Empty();
    if (m_isClippedAway)
        return;
    m_raster.left = static_cast<int>(box.min.x);
    m_raster.top = static_cast<int>(box.min.y);
    m_raster.right = static_cast<int>(box.max.x);
    m_raster.bottom = static_cast<int>(box.max.y);
    m_canvas.SetClip({m_raster.left, m_raster.top, m_raster.right, m_raster.bottom});
    if (!m_isPlainClip)
        NarrowClip(number);
}

void PaintArea::NarrowClip(std::uint32_t number)
{
    for (; number != 0; number = m_list.clips[number].parent) {
        const Clip& clip = m_list.clips[number];
        m_path.Clear();
        AppendFlattened(clip.path, ToPixels(m_map, {}), m_path);
        CutArea(m_path);
        m_canvas.NarrowClip(m_path, clip.rule);
    }
}

Box2 PaintArea::Frame(double width) const
{
    return render::Grown(m_box, kBesides + width);
}

bool PaintArea::ReachesFar(const Path& path) const
{
    return !render::Contains(render::Grown(m_box, kFar), render::HullOf(path));
}

void PaintArea::CutLines(Path& path, double width)
{
    if (!ReachesFar(path))
        return;
    m_cut.Clear();
    AppendClipped(path, Frame(width), m_cut);
    std::swap(path, m_cut);
}

void PaintArea::CutArea(Path& path)
{
    if (!ReachesFar(path))
        return;
    m_cut.Clear();
    AppendClippedArea(path, Frame(0), m_cut);
    std::swap(path, m_cut);
}

} // namespace sm::scene
