// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/ItemPainter.h"

#include "paint/PaintArea.h"
#include "picture/PixelPath.h"
#include "render/ClipBox.h"

#include <algorithm>
#include <cmath>

namespace sm::scene {
namespace {

using render::Verb;

constexpr double kSmallest = 0.5; // pixels; what is less is a dot
constexpr double kHairline = 1.4; // pixels; a pen up to that wide draws the thinnest line
constexpr double kLegible = 3.5;  // pixels of an em; smaller text is a bar

int OpacityOf(std::uint32_t color)
{
    return 255 - static_cast<int>(color >> 24);
}

class ItemPainter {
public:
    ItemPainter(const LayoutPicture& picture, const ViewMap& map, PixelImage& image, const PixelBox& region,
                IPixelCanvas& canvas, Backdrop backdrop)
        : m_list(picture.list), m_map(map), m_canvas(canvas), m_backdrop(backdrop),
          m_area(picture.list, map, image, region, canvas)
    {
    }
    void PaintSheet(const LayoutPicture& picture)
    {
        const BackdropColors& colors = ColorsOf(m_backdrop);
        const PixelBox& region = m_area.Region();
        m_canvas.FillBox({{static_cast<double>(region.left), static_cast<double>(region.top)},
                          {static_cast<double>(region.right), static_cast<double>(region.bottom)}},
                         picture.paper ? colors.desk : colors.sheet);
        if (!picture.paper)
            return;
        constexpr Vec2 kShadow{4, 4}; // pixels
        const Box2 paper = ToBox(*picture.paper);
        m_canvas.FillBox({paper.min + kShadow, paper.max + kShadow}, colors.shadow);
        m_canvas.FillBox(paper, colors.sheet);
        m_canvas.FrameBox(paper, {colors.edge});
        PixelPen dashed{colors.printable};
        dashed.isDashed = true;
        if (picture.printable)
            m_canvas.FrameBox(ToBox(*picture.printable), dashed);
    }
    bool PaintItems(const std::function<bool()>& goOn)
    {
        std::uint32_t seen = 0;
        for (const Chunk& chunk : m_list.chunks) {
            if (!render::Overlaps(chunk.box, m_area.Visible()))
                continue;
            if (++seen % 16 == 0 && !goOn())
                return false;
            for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i)
                Paint(m_list.items[i]);
        }
        return true;
    }

private:
    [[nodiscard]] Box2 ToBox(const Box2& box) const
    {
        constexpr double kMost = 8000;
        const Vec2 a = m_map.ToPixel({box.min.x, box.max.y});
        const Vec2 b = m_map.ToPixel({box.max.x, box.min.y});
        const auto near = [](double value) { return std::clamp(value, -kMost, 2 * kMost); };
        return {{near(a.x), near(a.y)}, {near(b.x), near(b.y)}};
    }

    void Paint(const Item& item)
    {
        const Box2 box = item.Box();
        const double pen = static_cast<double>(item.width);
        if (!render::Overlaps(box, item.width > 0 ? render::Grown(m_area.Visible(), pen) : m_area.Visible()))
            return;
        if (item.clip != m_area.ClipInForce())
            m_area.UseClip(item.clip);
        if (m_area.IsClippedAway())
            return;
        if (m_backdrop == Backdrop::Light)
            return PaintInked(item, box);
        Item inked = item;
        inked.color = InkOn(m_backdrop, item.color);
        PaintInked(inked, box);
    }

    void PaintInked(const Item& item, const Box2& box)
    {
        const double size =
            std::max(std::max(box.Width(), box.Height()), static_cast<double>(item.width)) * m_map.scale;
        if (size < kSmallest)
            return PaintDot(item, (box.min + box.max) * 0.5);
        switch (item.kind) {
        case ItemKind::Stroke:
            return PaintStroke(item);
        case ItemKind::Fill:
            return PaintFill(item);
        case ItemKind::Text:
            return PaintText(item);
        case ItemKind::Image:
            return PaintImage(item);
        }
    }

    void PaintDot(const Item& item, Vec2 at)
    {
        const Vec2 pixel = m_map.ToPixel(at);
        if (m_area.IsPlainClip())
            return DrawDot(m_area.Pixels(), pixel, item.color & 0xFFFFFF, OpacityOf(item.color));
        m_canvas.FillBox({pixel, pixel + Vec2{1, 1}}, item.color);
    }

    void PaintStroke(const Item& item)
    {
        m_path.Clear();
        AppendFlattened(m_list.VerbsOf(item), m_list.PointsOf(item), ToPixels(m_map, item.origin), m_path);
        StrokePixels(item, static_cast<double>(item.width) * m_map.scale);
    }

    /// `m_path` holds lines in pixels.
    void StrokePixels(const Item& item, double width)
    {
        if (width <= kHairline && m_area.IsPlainClip())
            return DrawHairlines(item.color);
        const double pen = width > kHairline ? width : 1;
        m_area.CutLines(m_path, pen);
        m_canvas.Stroke(m_path, {item.color, pen, item.cap, item.join});
    }

    void DrawHairlines(std::uint32_t color)
    {
        const int opacity = OpacityOf(color);
        std::size_t next = 0;
        Vec2 start, at;
        for (const Verb verb : m_path.verbs) {
            if (verb == Verb::Move) {
                start = at = m_path.points[next++];
                continue;
            }
            const Vec2 to = verb == Verb::Line ? m_path.points[next++] : start;
            DrawHairline(m_area.Pixels(), at, to, color & 0xFFFFFF, opacity);
            at = to;
        }
    }

    void PaintFill(const Item& item)
    {
        m_path.Clear();
        AppendFlattened(m_list.VerbsOf(item), m_list.PointsOf(item), ToPixels(m_map, item.origin), m_path);
        m_area.CutArea(m_path);
        m_canvas.Fill(m_path, item.color, item.rule);
    }

    void PaintText(const Item& item)
    {
        const GlyphRun& run = m_list.runs[item.first];
        const Matrix2 toPixels = Compose(ToPixels(m_map, item.origin), Matrix2{run.a, run.b, run.c, run.d, 0, 0});
        if (std::hypot(toPixels.c, toPixels.d) < kLegible)
            return PaintBar(item, run, toPixels);
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
            const PlacedGlyph& placed = m_list.placed[i];
            Matrix2 place = toPixels;
            const Vec2 at = toPixels.Apply({static_cast<double>(placed.at.x), static_cast<double>(placed.at.y)});
            place.e = at.x;
            place.f = at.y;
            run.stroked ? PaintStrokes(item, placed.glyph, place) : PaintOutline(item, placed.glyph, place);
        }
    }

    /// A line through the middle of the letters stands for text too small to read.
    void PaintBar(const Item& item, const GlyphRun& run, const Matrix2& toPixels)
    {
        constexpr double kMiddle = 0.35; // em
        const Spot first = m_list.placed[run.first].at;
        const Spot last = m_list.placed[run.first + run.count - 1].at;
        m_path.Clear();
        m_path.MoveTo(toPixels.Apply({static_cast<double>(first.x), kMiddle + static_cast<double>(first.y)}));
        m_path.LineTo(toPixels.Apply({static_cast<double>(last.x) + 0.5, kMiddle + static_cast<double>(last.y)}));
        Item bar = item;
        const std::uint32_t half = (255 - (item.color >> 24)) / 2;
        bar.color = (item.color & 0xFFFFFF) | (255 - half) << 24;
        StrokePixels(bar, 0);
    }

    void PaintStrokes(const Item& item, std::uint32_t glyph, const Matrix2& place)
    {
        m_path.Clear();
        AppendFlattened(m_list.glyphs[glyph].outline, place, m_path);
        StrokePixels(item, static_cast<double>(item.width) * m_map.scale);
    }

    void PaintOutline(const Item& item, std::uint32_t glyph, const Matrix2& place)
    {
        constexpr double kLargeLetter = 2000; // pixels
        if (std::hypot(place.a, place.b) + std::hypot(place.c, place.d) <= kLargeLetter)
            return m_canvas.FillGlyph(glyph, m_list.glyphs[glyph].outline, place, item.color);
        m_path.Clear();
        AppendFlattened(m_list.glyphs[glyph].outline, place, m_path);
        m_area.CutArea(m_path);
        m_canvas.Fill(m_path, item.color, render::FillRule::NonZero);
    }

    void PaintImage(const Item& item)
    {
        const PlacedPicture& placed = m_list.pictures[item.first];
        m_canvas.DrawPicture(*placed.picture, Compose(ToPixels(m_map, {}), placed.toScene), item.color);
    }

    const DisplayList& m_list;
    const ViewMap& m_map;
    IPixelCanvas& m_canvas;
    Backdrop m_backdrop;
    PaintArea m_area;
    Path m_path;
};

} // namespace

bool PaintPicture(const LayoutPicture& picture, const ViewMap& map, PixelImage& image, const PixelBox& region,
                  IPixelCanvases& canvases, const std::function<bool()>& goOn, Backdrop backdrop)
{
    const auto canvas = canvases.On(image);
    ItemPainter painter(picture, map, image, region, *canvas, backdrop);
    painter.PaintSheet(picture);
    return painter.PaintItems(goOn);
}

} // namespace sm::scene
