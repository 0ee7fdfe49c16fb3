// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/SoftCanvas.h"

#include "paint/PicturePixels.h"
#include "paint/StrokeArea.h"
#include "picture/BlendPixel.h"
#include "picture/PixelPath.h"
#include "render/ClipBox.h"

#include <map>
#include <utility>

namespace sm::scene {
namespace {

using render::FillRule;

int Opacity(std::uint32_t color)
{
    return 255 - static_cast<int>(color >> 24);
}

/// What painting keeps from one picture to the next.
struct SoftCache {
    Coverage area;
    std::map<std::pair<std::uint64_t, std::uint32_t>, PicturePixels> pictures;
};

/// Appends a line's dashes: four times the pen's width, and two between them.
void AppendDashes(Vec2 from, Vec2 to, double width, Path& out)
{
    const Vec2 whole = to - from;
    const double length = std::hypot(whole.x, whole.y);
    for (double at = 0; at < length; at += 6 * width) {
        out.MoveTo(from + whole * (at / length));
        out.LineTo(from + whole * (std::min(at + 4 * width, length) / length));
    }
}

class SoftCanvas final : public IPixelCanvas {
public:
    SoftCanvas(PixelImage& image, SoftCache& cache) : m_image(image), m_cache(cache), m_clip(image.All()) {}

    void SetClip(const PixelBox& box) override
    {
        m_clip = box.Common(m_image.All());
        m_mask.clear();
    }
    void NarrowClip(const Path& path, FillRule rule) override
    {
        if (m_clip.Empty())
            return;
        std::vector<std::uint8_t> mask(static_cast<std::size_t>(m_clip.Width()) *
                                       static_cast<std::size_t>(m_clip.Height()));
        m_cache.area.Begin(m_clip);
        m_cache.area.Add(path);
        m_cache.area.Sweep(rule, [&](int y, int x, int count, int opacity) {
            for (const int end = x + count; x < end; ++x)
                mask[MaskAt(x, y)] = static_cast<std::uint8_t>(Masked(x, y, opacity));
        });
        m_mask = std::move(mask);
    }
    void FillBox(const Box2& box, std::uint32_t color) override
    {
        m_path.Clear();
        render::AppendBox(m_path, box);
        Fill(m_path, color, FillRule::NonZero);
    }
    void FrameBox(const Box2& box, const PixelPen& pen) override
    {
        Path edges;
        if (!pen.isDashed) {
            render::AppendBox(edges, box);
            return Stroke(edges, pen);
        }
        const Vec2 right{box.max.x, box.min.y}, left{box.min.x, box.max.y};
        AppendDashes(box.min, right, pen.width, edges);
        AppendDashes(right, box.max, pen.width, edges);
        AppendDashes(box.max, left, pen.width, edges);
        AppendDashes(left, box.min, pen.width, edges);
        Stroke(edges, pen);
    }
    void Stroke(const Path& path, const PixelPen& pen) override
    {
        m_cache.area.Begin(m_clip);
        AddStroke(path, pen, m_cache.area);
        Paint(pen.color, FillRule::NonZero);
    }
    void Fill(const Path& path, std::uint32_t color, FillRule rule) override
    {
        m_cache.area.Begin(m_clip);
        m_cache.area.Add(path);
        Paint(color, rule);
    }
    void FillGlyph(std::uint32_t /*glyph*/, const Path& outline, const Matrix2& toPixels, std::uint32_t color) override
    {
        m_path.Clear();
        AppendFlattened(outline, toPixels, m_path);
        Fill(m_path, color, FillRule::NonZero);
    }
    void DrawPicture(const render::Picture& picture, const Matrix2& toPixels, std::uint32_t color) override
    {
        const double area = toPixels.a * toPixels.d - toPixels.b * toPixels.c;
        const std::uint32_t ink = picture.form == render::Picture::Form::Mask ? color & 0xFFFFFF : 0;
        const auto known = m_cache.pictures.try_emplace({picture.id, ink}, picture, ink).first;
        if (known->second.Empty() || !std::isfinite(1 / area))
            return;
        m_path.Clear();
        m_path.MoveTo(toPixels.Apply({0, 0}));
        m_path.LineTo(toPixels.Apply({1, 0}));
        m_path.LineTo(toPixels.Apply({1, 1}));
        m_path.LineTo(toPixels.Apply({0, 1}));
        m_cache.area.Begin(m_clip);
        m_cache.area.Add(m_path);
        const Vec2 across{toPixels.d / area, -toPixels.b / area}, down{-toPixels.c / area, toPixels.a / area};
        m_cache.area.Sweep(FillRule::NonZero, [&](int y, int x, int count, int opacity) {
            for (const int end = x + count; x < end; ++x) {
                const double dx = x + 0.5 - toPixels.e, dy = y + 0.5 - toPixels.f;
                const std::uint32_t pixel = known->second.At(across * dx + down * dy, across, down);
                const int seen = static_cast<int>(pixel >> 24) * Opacity(color) / 255;
                BlendPixel(m_image.Row(y)[x], pixel & 0xFFFFFF, Masked(x, y, opacity * seen / 255));
            }
        });
    }

private:
    [[nodiscard]] std::size_t MaskAt(int x, int y) const
    {
        return static_cast<std::size_t>(y - m_clip.top) * static_cast<std::size_t>(m_clip.Width()) +
               static_cast<std::size_t>(x - m_clip.left);
    }
    [[nodiscard]] int Masked(int x, int y, int opacity) const
    {
        return m_mask.empty() ? opacity : opacity * m_mask[MaskAt(x, y)] / 255;
    }
    void Paint(std::uint32_t color, FillRule rule)
    {
        const int whole = Opacity(color);
        const std::uint32_t ink = color & 0xFFFFFF;
        m_cache.area.Sweep(rule, [&](int y, int x, int count, int opacity) {
            std::uint32_t* const row = m_image.Row(y);
            const int seen = opacity * whole / 255;
            if (seen == 255 && m_mask.empty()) {
                std::fill_n(row + x, count, 0xFF000000 | ink);
                return;
            }
            for (const int end = x + count; x < end; ++x)
                BlendPixel(row[x], ink, Masked(x, y, seen));
        });
    }

    PixelImage& m_image;
    SoftCache& m_cache;
    PixelBox m_clip;
    std::vector<std::uint8_t> m_mask; ///< of the clip's box; empty: all of it shows
    Path m_path;
};

class SoftCanvases final : public IPixelCanvases {
public:
    std::unique_ptr<IPixelCanvas> On(PixelImage& image) override
    {
        return std::make_unique<SoftCanvas>(image, m_cache);
    }
    void Forget() override { m_cache.pictures.clear(); }

private:
    SoftCache m_cache;
};

} // namespace

std::unique_ptr<IPixelCanvases> CreateSoftCanvases()
{
    return std::make_unique<SoftCanvases>();
}

} // namespace sm::scene
