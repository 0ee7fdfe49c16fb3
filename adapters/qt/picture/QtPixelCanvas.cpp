// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/QtPixelCanvas.h"

#include "picture/ScenePictures.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <unordered_map>

namespace sm::qt {
namespace {
using render::Matrix2;
using render::Path;
using render::Verb;

/// What painting keeps from one picture to the next.
struct PaintCache {
    ScenePictures pictures;
    std::unordered_map<std::uint32_t, QPainterPath> glyphs; ///< em, of the list at hand
};

QColor InkOf(std::uint32_t color)
{
    QColor ink(static_cast<QRgb>(color & 0xFFFFFF));
    ink.setAlpha(255 - static_cast<int>(color >> 24));
    return ink;
}

QPainterPath ForQt(const Path& path)
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

QPainterPath ForQt(const Path& path, render::FillRule rule)
{
    QPainterPath out = ForQt(path);
    out.setFillRule(rule == render::FillRule::NonZero ? Qt::WindingFill : Qt::OddEvenFill);
    return out;
}

QRectF ForQt(const Box2& box)
{
    return {QPointF(box.min.x, box.min.y), QPointF(box.max.x, box.max.y)};
}

QTransform ForQt(const Matrix2& map)
{
    return {map.a, map.b, map.c, map.d, map.e, map.f};
}

QPen ForQt(const scene::PixelPen& pen)
{
    constexpr Qt::PenCapStyle caps[] = {Qt::FlatCap, Qt::RoundCap, Qt::SquareCap};
    constexpr Qt::PenJoinStyle joins[] = {Qt::MiterJoin, Qt::RoundJoin, Qt::BevelJoin};
    return {QBrush(InkOf(pen.color)), pen.width, pen.isDashed ? Qt::DashLine : Qt::SolidLine,
            caps[static_cast<std::size_t>(pen.cap)], joins[static_cast<std::size_t>(pen.join)]};
}

class QtPixelCanvas final : public scene::IPixelCanvas {
public:
    QtPixelCanvas(scene::PixelImage& image, PaintCache& cache)
        : m_image(reinterpret_cast<uchar*>(image.Row(0)), image.Width(), image.Height(), 4 * image.Width(),
                  QImage::Format_RGB32),
          m_cache(cache)
    {
        m_painter.begin(&m_image);
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
    }
    void SetClip(const scene::PixelBox& box) override
    {
        m_painter.setClipRect(QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom)));
    }
    void NarrowClip(const Path& path, render::FillRule rule) override
    {
        m_painter.setClipPath(ForQt(path, rule), Qt::IntersectClip);
    }
    void FillBox(const Box2& box, std::uint32_t color) override { m_painter.fillRect(ForQt(box), InkOf(color)); }
    void FrameBox(const Box2& box, const scene::PixelPen& pen) override
    {
        m_painter.setPen(ForQt(pen));
        m_painter.drawRect(ForQt(box));
    }
    void Stroke(const Path& path, const scene::PixelPen& pen) override
    {
        m_painter.strokePath(ForQt(path), ForQt(pen));
    }
    void Fill(const Path& path, std::uint32_t color, render::FillRule rule) override
    {
        m_painter.fillPath(ForQt(path, rule), InkOf(color));
    }
    void FillGlyph(std::uint32_t glyph, const Path& outline, const Matrix2& toPixels, std::uint32_t color) override
    {
        const auto [known, isNew] = m_cache.glyphs.try_emplace(glyph);
        if (isNew)
            known->second = ForQt(outline, render::FillRule::NonZero);
        m_painter.setTransform(ForQt(toPixels));
        m_painter.fillPath(known->second, InkOf(color));
        m_painter.resetTransform();
    }
    void DrawPicture(const render::Picture& picture, const Matrix2& toPixels, std::uint32_t color) override
    {
        const QImage& image = m_cache.pictures.Of(picture, color);
        if (image.isNull())
            return;
        m_painter.setTransform(
            ForQt(Compose(toPixels, Matrix2{1.0 / image.width(), 0, 0, -1.0 / image.height(), 0, 1})));
        m_painter.setOpacity(1 - static_cast<double>(color >> 24) / 255);
        m_painter.drawImage(0, 0, image);
        m_painter.setOpacity(1);
        m_painter.resetTransform();
    }

private:
    QImage m_image;
    PaintCache& m_cache;
    QPainter m_painter;
};

class QtPixelCanvases final : public scene::IPixelCanvases {
public:
    std::unique_ptr<scene::IPixelCanvas> On(scene::PixelImage& image) override
    {
        return std::make_unique<QtPixelCanvas>(image, m_cache);
    }
    void Forget() override { m_cache = {}; }

private:
    PaintCache m_cache;
};

} // namespace

std::unique_ptr<scene::IPixelCanvases> CreateQtCanvases()
{
    return std::make_unique<QtPixelCanvases>();
}

} // namespace sm::qt
