// SPDX-License-Identifier: GPL-3.0-or-later
#include "geometry/Cubic.h"
#include "paint/Painter.h"
#include "render/ClipBox.h"
#include "render/FrontEnd.h"

namespace sm::render {

namespace {

/// Adds up the box of all that is drawn; line widths aside.
class BoundsCanvas final : public ICanvas {
public:
    [[nodiscard]] const Box2& Box() const { return m_box; }
    void PushClip(const Path& path, FillRule) override
    {
        const Box2 hull = HullOf(path);
        m_clips.push_back(m_clips.empty() ? hull : Intersection(m_clips.back(), hull));
    }
    void PopClip() override { m_clips.pop_back(); }
    void Stroke(const Path& path, const StrokeStyle&) override { Add(path); }
    void Fill(const Path& path, std::uint32_t, FillRule) override { Add(path); }
    void Text(const TextRun&) override {}

private:
    void Add(const Path& path)
    {
        if (m_clips.empty()) {
            AddTo(m_box, path);
            return;
        }
        Box2 box;
        AddTo(box, path);
        m_box.Add(box.Empty() ? box : Intersection(box, m_clips.back()));
    }
    static void AddTo(Box2& box, const Path& path)
    {
        Vec2 at;
        const Vec2* point = path.points.data();
        for (const Verb verb : path.verbs) {
            switch (verb) {
            case Verb::Move:
            case Verb::Line:
                at = *point++;
                box.Add(at);
                break;
            case Verb::Cubic:
                Cubic{{at, point[0], point[1], point[2]}}.AddTo(box);
                at = point[2];
                point += 3;
                break;
            case Verb::Close:
                break;
            }
        }
    }
    Box2 m_box;
    std::vector<Box2> m_clips;
};

PaintOptions BoxOptions(References* references)
{
    PaintOptions options;
    options.references = references;
    options.lineweights = false;
    options.boxesOnly = true;
    options.paperSpace = true;
    return options;
}

} // namespace

Box2 BoundsOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record, TextEngine& text,
              References* references)
{
    BoundsCanvas canvas;
    Painter painter(drawing, canvas, text, nullptr, Box2{}, BoxOptions(references), false);
    painter.PaintEntity(record, Frame{});
    return canvas.Box();
}

Box2 ExtentsOf(const drawing::Drawing& drawing, std::uint32_t block, const Matrix3& view, TextEngine& text,
               References* references)
{
    BoundsCanvas canvas;
    Painter painter(drawing, canvas, text, nullptr, Box2{}, BoxOptions(references));
    Frame frame;
    frame.toPaper = Flatten(view, {});
    painter.PaintSpace(block, frame);
    return canvas.Box();
}

} // namespace sm::render
