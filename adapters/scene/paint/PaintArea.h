// SPDX-License-Identifier: GPL-3.0-or-later
// The part of an image that is painted: what of the scene it shows, and the clip in force.
#pragma once

#include "picture/Hairline.h"
#include "scene/DisplayList.h"
#include "scene/PixelCanvas.h"
#include "scene/ViewMap.h"

namespace sm::scene {

class PaintArea {
public:
    /// All outlive the area.
    PaintArea(const DisplayList& list, const ViewMap& map, PixelImage& image, const PixelBox& region,
              IPixelCanvas& canvas);

    [[nodiscard]] const PixelBox& Region() const { return m_region; }
    [[nodiscard]] const Box2& Visible() const { return m_visible; } ///< scene millimetres
    void UseClip(std::uint32_t number);
    [[nodiscard]] std::uint32_t ClipInForce() const { return m_clip; }
    /// A rectangle is all there is to the clip in force: pixels within `Pixels` may be painted straight.
    [[nodiscard]] bool IsPlainClip() const { return m_isPlainClip; }
    /// Nothing of the clip in force shows.
    [[nodiscard]] bool IsClippedAway() const { return m_isClippedAway; }
    [[nodiscard]] const Raster& Pixels() const { return m_raster; }

    /// Cut what reaches far off the region, further than canvases count.
    void CutLines(Path& path, double width);
    void CutArea(Path& path);

private:
    void NarrowClip(std::uint32_t number);
    [[nodiscard]] bool ReachesFar(const Path& path) const;
    [[nodiscard]] Box2 Frame(double width) const;

    const DisplayList& m_list;
    const ViewMap& m_map;
    IPixelCanvas& m_canvas;
    PixelBox m_region;
    Raster m_raster;
    Box2 m_box; ///< of the region, pixels
    Box2 m_visible;
    std::uint32_t m_clip = 0;
    bool m_isPlainClip = true;
    bool m_isClippedAway = false;
    Path m_path, m_cut;
};

} // namespace sm::scene
