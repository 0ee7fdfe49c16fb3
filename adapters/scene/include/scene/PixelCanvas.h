// SPDX-License-Identifier: GPL-3.0-or-later
// What shapes are painted into pixels with. The thinnest lines are drawn without it.
#pragma once

#include "render/Canvas.h"
#include "scene/PixelImage.h"

#include <cstdint>
#include <memory>

namespace sm::scene {

struct PixelPen {
    std::uint32_t color = 0; ///< 0xTTRRGGBB as in Canvas.h
    double width = 1;        ///< pixels
    render::LineCap cap = render::LineCap::Butt;
    render::LineJoin join = render::LineJoin::Miter;
    bool isDashed = false;
};

/// Coordinates are pixels, y down, the corner of a pixel a whole number; paths hold lines alone where nothing else is
/// said. Everything is smoothed at its edges, blended by its colour (0xTTRRGGBB) and stands in the image when the call
/// returns. Nothing here throws but a want of memory.
class IPixelCanvas {
public:
    virtual ~IPixelCanvas() = default;
    /// Takes the place of any clip before.
    virtual void SetClip(const PixelBox& box) = 0;
    virtual void NarrowClip(const render::Path& path, render::FillRule rule) = 0;
    virtual void FillBox(const Box2& box, std::uint32_t color) = 0;
    /// Its edges alone.
    virtual void FrameBox(const Box2& box, const PixelPen& pen) = 0;
    virtual void Stroke(const render::Path& path, const PixelPen& pen) = 0;
    virtual void Fill(const render::Path& path, std::uint32_t color, render::FillRule rule) = 0;
    /// An outline with curves, of the number `glyph` in its list of them.
    virtual void FillGlyph(std::uint32_t glyph, const render::Path& outline, const render::Matrix2& toPixels,
                           std::uint32_t color) = 0;
    /// `toPixels` maps the unit square, y up, whose lower left corner is the picture's. A mask is painted in `color`.
    virtual void DrawPicture(const render::Picture& picture, const render::Matrix2& toPixels, std::uint32_t color) = 0;
};

/// Makes canvases, and keeps what they need again from one to the next. Belongs to one thread.
class IPixelCanvases {
public:
    virtual ~IPixelCanvases() = default;
    /// The image outlives the canvas.
    virtual std::unique_ptr<IPixelCanvas> On(PixelImage& image) = 0;
    /// Another list of items comes: glyphs have other numbers.
    virtual void Forget() = 0;
};

} // namespace sm::scene
