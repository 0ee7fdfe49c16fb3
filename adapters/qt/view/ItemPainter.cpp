// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/ItemPainter.h"

#include "picture/PixelPath.h"
#include "render/ClipArea.h"
#include "render/ClipBox.h"

#include <cmath>

namespace sm::qt {
namespace {

using render::Verb;

constexpr double kSmallest = 0.5; // pixels; what is less is a dot
constexpr double kHairline = 1.4; // pixels; a pen up to that wide draws the thinnest line
constexpr double kLegible = 3.5;  // pixels of an em; smaller text is a bar
constexpr double kFar = 8000;     // pixels off the image: what reaches further is cut first
constexpr double kBesides = 64;   // pixels round the image that cut shapes keep

QColor ColorOf(std::uint32_t color)
{
    QColor ink(static_cast<QRgb>(color & 0xFFFFFF));
    ink.setAlpha(255 - static_cast<int>(color >> 24));
    return ink;
}

QPainterPath ToQt(const Path& path)
{
    QPainterPath out;
    std::size_t next = 0;
    const auto take = [&] {
        const Vec2 point = path.points[next++];
        return QPointF(point.x, point.y);
    };
    for (const Verb verb : path.verbs) {
        if (verb == Verb::Move) {
            out.moveTo(take());
        } else if (verb == Verb::Line) {
            out.lineTo(take());
        } else if (verb == Verb::Cubic) {
            const QPointF p1 = take();
            const QPointF p2 = take();
            out.cubicTo(p1, p2, take());
        } else {
            out.closeSubpath();
        }
    }
    return out;
}

Qt::FillRule RuleOf(render::FillRule rule)
{
    return rule == render::FillRule::NonZero ? Qt::WindingFill : Qt::OddEvenFill;
}

QPen PenOf(const Item& item, double width)
{
    constexpr Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
    constexpr Qt::PenJoinStyle joins[] = {Qt::MiterJoin, Qt::RoundJoin, Qt::BevelJoin};
    return {QBrush(ColorOf(item.color)), width, Qt::SolidLine, caps[static_cast<std::size_t>(item.cap)],
            joins[static_cast<std::size_t>(item.join)]};
}

class ItemPainter {
public:
    ItemPainter(const LayoutPicture& picture, const ViewMap& map, QImage& image, const QRect& region, PaintCache& cache,
                Backdrop backdrop)
        : m_list(picture.list), m_map(map), m_region(region & image.rect()), m_cache(cache), m_backdrop(backdrop)
    {
        m_raster.pixels = reinterpret_cast<std::uint32_t*>(image.bits());
        m_raster.stride = image.bytesPerLine() / 4;
        m_painter.begin(&image);
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
        m_painter.setClipRect(m_region);
        const double left = m_region.left();
        const double top = m_region.top();
        m_box = {{left, top}, {left + m_region.width(), top + m_region.height()}};
        const Vec2 a = map.ToScene({m_box.min.x - 2, m_box.max.y + 2});
        const Vec2 b = map.ToScene({m_box.max.x + 2, m_box.min.y - 2});
        m_visible = {a, b};
        UseClip(0);
    }
    void PaintSheet(const LayoutPicture& picture)
    {
        const BackdropColors& colors = ColorsOf(m_backdrop);
        m_painter.fillRect(m_region, ColorOf(picture.paper ? colors.desk : colors.sheet));
        if (!picture.paper)
            return;
        const QRectF paper = ToRect(*picture.paper);
        m_painter.fillRect(paper.translated(4, 4), ColorOf(colors.shadow));
        m_painter.fillRect(paper, ColorOf(colors.sheet));
        m_painter.setPen(QPen(ColorOf(colors.edge), 1));
        m_painter.drawRect(paper);
        m_painter.setPen(QPen(ColorOf(colors.printable), 1, Qt::DashLine));
        m_painter.drawRect(ToRect(*picture.printable));
    }
    bool PaintItems(const std::function<bool()>& goOn)
    {
        std::uint32_t seen = 0;
        for (const Chunk& chunk : m_list.chunks) {
            if (!render::Overlaps(chunk.box, m_visible))
                continue;
            if (++seen % 16 == 0 && !goOn())
                return false;
            for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i)
                Paint(m_list.items[i]);
        }
        return true;
    }

private:
    [[nodiscard]] QRectF ToRect(const Box2& box) const
    {
        const Vec2 a = m_map.ToPixel({box.min.x, box.max.y});
        const Vec2 b = m_map.ToPixel({box.max.x, box.min.y});
        const auto near = [](double value) { return std::clamp(value, -kFar, 2 * kFar); };
        return {QPointF(near(a.x), near(a.y)), QPointF(near(b.x), near(b.y))};
    }

    void Paint(const Item& item)
    {
        const Box2 box = item.Box();
        const double pen = static_cast<double>(item.width);
        if (!render::Overlaps(box, item.width > 0 ? render::Grown(m_visible, pen) : m_visible))
            return;
        if (item.clip != m_clip)
            UseClip(item.clip);
        if (m_isClippedAway)
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
        if (m_isPlainClip)
            return DrawDot(m_raster, pixel, item.color & 0xFFFFFF, 255 - static_cast<int>(item.color >> 24));
        m_painter.fillRect(QRectF(pixel.x, pixel.y, 1, 1), ColorOf(item.color));
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
        if (width > kHairline) {
            CutFar([&](const Path& path, Path& out) { AppendClipped(path, Frame(width), out); });
            m_painter.strokePath(ToQt(m_path), PenOf(item, width));
        } else if (m_isPlainClip) {
            DrawHairlines(item.color);
        } else {
            CutFar([&](const Path& path, Path& out) { AppendClipped(path, Frame(1), out); });
            m_painter.strokePath(ToQt(m_path), PenOf(item, 1));
        }
    }

    void DrawHairlines(std::uint32_t color)
    {
        const int opacity = 255 - static_cast<int>(color >> 24);
        std::size_t next = 0;
        Vec2 start, at;
        for (const Verb verb : m_path.verbs) {
            if (verb == Verb::Move) {
                start = at = m_path.points[next++];
                continue;
            }
            const Vec2 to = verb == Verb::Line ? m_path.points[next++] : start;
            DrawHairline(m_raster, at, to, color & 0xFFFFFF, opacity);
            at = to;
        }
    }

    void PaintFill(const Item& item)
    {
        m_path.Clear();
        AppendFlattened(m_list.VerbsOf(item), m_list.PointsOf(item), ToPixels(m_map, item.origin), m_path);
        CutFar([&](const Path& path, Path& out) { AppendClippedArea(path, Frame(0), out); });
        QPainterPath path = ToQt(m_path);
        path.setFillRule(RuleOf(item.rule));
        m_painter.fillPath(path, ColorOf(item.color));
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
        if (std::hypot(place.a, place.b) + std::hypot(place.c, place.d) > kLargeLetter) {
            m_path.Clear();
            AppendFlattened(m_list.glyphs[glyph].outline, place, m_path);
            CutFar([&](const Path& path, Path& out) { AppendClippedArea(path, Frame(0), out); });
            QPainterPath path = ToQt(m_path);
            path.setFillRule(Qt::WindingFill);
            return m_painter.fillPath(path, ColorOf(item.color));
        }
        const auto [known, isNew] = m_cache.glyphs.try_emplace(glyph);
        if (isNew) {
            known->second = ToQt(m_list.glyphs[glyph].outline);
            known->second.setFillRule(Qt::WindingFill);
        }
        m_painter.setTransform(QTransform(place.a, place.b, place.c, place.d, place.e, place.f));
        m_painter.fillPath(known->second, ColorOf(item.color));
        m_painter.resetTransform();
    }

    void PaintImage(const Item& item)
    {
        const PlacedPicture& placed = m_list.pictures[item.first];
        const QImage& image = m_cache.pictures.Of(*placed.picture, item.color);
        if (image.isNull())
            return;
        const Matrix2 unit = Compose(ToPixels(m_map, {}), placed.toScene);
        const Matrix2 pixels = Compose(unit, Matrix2{1.0 / image.width(), 0, 0, -1.0 / image.height(), 0, 1});
        m_painter.setTransform(QTransform(pixels.a, pixels.b, pixels.c, pixels.d, pixels.e, pixels.f));
        m_painter.setOpacity(1 - static_cast<double>(item.color >> 24) / 255);
        m_painter.drawImage(0, 0, image);
        m_painter.setOpacity(1);
        m_painter.resetTransform();
    }

    /// What paths that reach far are cut to.
    [[nodiscard]] Box2 Frame(double width) const { return render::Grown(m_box, kBesides + width); }

    template <class Cut> void CutFar(Cut cut)
    {
        const Box2 hull = render::HullOf(m_path);
        if (render::Contains(render::Grown(m_box, kFar), hull))
            return;
        m_cut.Clear();
        cut(m_path, m_cut);
        std::swap(m_path, m_cut);
    }

    void UseClip(std::uint32_t number)
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
        m_painter.setClipRect(QRectF(QPointF(box.min.x, box.min.y), QPointF(box.max.x, box.max.y)));
        if (!m_isPlainClip)
            NarrowClip(number);
    }
    void NarrowClip(std::uint32_t number)
    {
        for (; number != 0; number = m_list.clips[number].parent) {
            const Clip& clip = m_list.clips[number];
            m_path.Clear();
            AppendFlattened(clip.path, ToPixels(m_map, {}), m_path);
            CutFar([&](const Path& path, Path& out) { AppendClippedArea(path, Frame(0), out); });
            QPainterPath path = ToQt(m_path);
            path.setFillRule(RuleOf(clip.rule));
            m_painter.setClipPath(path, Qt::IntersectClip);
        }
    }

    const DisplayList& m_list;
    const ViewMap& m_map;
    QRect m_region;
    PaintCache& m_cache;
    Backdrop m_backdrop;
    Raster m_raster;
    QPainter m_painter;
    Box2 m_box;     ///< of the region, pixels
    Box2 m_visible; ///< of the region, scene millimetres
    std::uint32_t m_clip = 0;
    bool m_isPlainClip = true;    ///< a rectangle is all there is to the clip in force
    bool m_isClippedAway = false; ///< nothing of the clip in force shows
    Path m_path, m_cut;
};

} // namespace

bool PaintPicture(const LayoutPicture& picture, const ViewMap& map, QImage& image, const QRect& region,
                  PaintCache& cache, const std::function<bool()>& goOn, Backdrop backdrop)
{
    ItemPainter painter(picture, map, image, region, cache, backdrop);
    painter.PaintSheet(picture);
    return painter.PaintItems(goOn);
}

} // namespace sm::qt
