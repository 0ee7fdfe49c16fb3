// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/LayoutPicture.h"

#include "cadhost/SheetPlace.h"
#include "drawing/Drawing.h"
#include "drawing/PlanView.h"
#include "render/ClipBox.h"
#include "render/FrontEnd.h"
#include "render/Projection.h"
#include "render/References.h"
#include "render/TextLayout.h"
#include "scene/DisplayRecorder.h"

#include <algorithm>
#include <cmath>

namespace sm::scene {
namespace {
using render::Dot;

constexpr double kModelSize = 4000; // mm that a model takes: fine enough for its line types when one zooms in
constexpr double kResolution = 150; // dots per inch of pictures

bool IsUsable(const Box2& box)
{
    return !box.Empty() && std::isfinite(box.Width()) && std::isfinite(box.Height()) &&
           (box.Width() > 0 || box.Height() > 0);
}

/// Points of the drawing stay exact: the scale is a power of two and the middle a whole number.
SceneMap ModelMap(const render::Matrix3& view, const Box2& box)
{
    const double size = std::max(box.Width(), box.Height());
    const double scale = std::exp2(std::floor(std::log2(kModelSize / size)));
    return {view, scale, {std::round((box.min.x + box.max.x) / 2), std::round((box.min.y + box.max.y) / 2)}};
}

render::Matrix3 ModelViewOf(const drawing::Drawing& drawing)
{
    const auto view = drawing.ActiveModelView();
    if (!view || (drawing::IsPlanView(view->direction) && view->twist == 0))
        return {};
    return render::ViewMatrix(view->direction, view->target, view->twist);
}

Box2 Mapped(const SceneMap& map, const Box2& box)
{
    Box2 out;
    out.Add(map.ToScene(box.min));
    out.Add(map.ToScene(box.max));
    return out;
}

Box2 Shown(const Matrix2& toPaper, const Box2& box)
{
    return {toPaper.Apply(box.min), toPaper.Apply(box.max)};
}

Box2 WithSize(const Box2& box)
{
    return IsUsable(box) ? box : box.Empty() ? Box2{{0, 0}, {420, 297}} : render::Grown(box, 100);
}

/// A little more than the box: lines that run along its edge show whole.
Box2 ClipRound(const Box2& box)
{
    return render::Grown(box, 1 + 0.02 * std::max(box.Width(), box.Height()));
}

class Recording {
public:
    Recording(const drawing::Drawing& drawing, const drawing::Layout& layout, render::TextEngine& text,
              render::References& references, const std::atomic<bool>& stop)
        : m_drawing(drawing), m_layout(layout), m_text(text), m_references(references), m_stop(stop)
    {
    }
    std::unique_ptr<LayoutPicture> Record()
    {
        auto picture = std::make_unique<LayoutPicture>();
        picture->decimals = std::clamp(m_drawing.HeaderInteger("$LUPREC", 4), 0, 8);
        m_layout.isModel ? RecordModel(*picture) : RecordSheet(*picture);
        if (m_stop)
            return nullptr;
        picture->list = m_recorder.TakeList();
        std::vector<Box2> clips;
        for (const Clip& clip : picture->list.clips)
            clips.push_back(clip.box);
        picture->snaps = SnapIndex(m_recorder.TakeShapes(), std::move(clips));
        picture->home = picture->list.Extents();
        if (picture->paper)
            picture->home.Add(*picture->paper);
        constexpr double kLeastSide = 1; // mm; a lone point has no size of its own
        if (std::max(picture->home.Width(), picture->home.Height()) < kLeastSide)
            picture->home = render::Grown(picture->home, 100);
        picture->home = WithSize(picture->home);
        return picture;
    }

private:
    void RecordModel(LayoutPicture& picture)
    {
        const render::Matrix3 view = ModelViewOf(m_drawing);
        const Box2 box = WithSize(render::ExtentsOf(m_drawing, m_layout.block, view, m_text, &m_references));
        picture.map = ModelMap(view, box);
        render::Scene scene{m_drawing, m_layout.block, view, picture.map.ToPaper(),
                            ClipRound(Shown(picture.map.ToPaper(), box))};
        scene.lineweights = false;
        Render(scene);
    }
    void RecordSheet(LayoutPicture& picture)
    {
        const cadhost::SheetPlace place = cadhost::PlaceOfSheet(m_drawing, m_layout);
        picture.map = SceneMap({}, place.millimetres, {});
        picture.paper = Mapped(picture.map, place.paper);
        picture.printable = Mapped(picture.map, place.printable);
        Box2 box = *picture.paper;
        const Box2 drawn = render::ExtentsOf(m_drawing, m_layout.block, {}, m_text, &m_references);
        if (IsUsable(drawn))
            box.Add(Mapped(picture.map, drawn));
        render::Scene scene{m_drawing, m_layout.block, {}, picture.map.ToPaper(), ClipRound(box)};
        scene.paperSpace = true;
        scene.lineweights = place.lineweights;
        scene.lineweightScale = place.lineweightScale;
        scene.viewportsFirst = place.viewportsFirst;
        scene.viewportBorders = place.viewportBorders;
        Render(scene);
    }
    void Render(render::Scene& scene)
    {
        if (m_stop)
            return;
        scene.references = &m_references;
        scene.resolution = kResolution;
        scene.stop = &m_stop;
        render::RenderReport report(m_drawing);
        render::RenderScene(scene, m_recorder, m_text, report);
    }

    const drawing::Drawing& m_drawing;
    const drawing::Layout& m_layout;
    render::TextEngine& m_text;
    render::References& m_references;
    const std::atomic<bool>& m_stop;
    DisplayRecorder m_recorder;
};

} // namespace

Vec2 SceneMap::ToScene(Vec2 point) const
{
    const Vec3 seen = m_view.Apply({point.x, point.y, 0});
    return {(seen.x - m_middle.x) * m_scale, (seen.y - m_middle.y) * m_scale};
}

Vec2 SceneMap::ToDrawing(Vec2 scene) const
{
    const Vec2 seen{scene.x / m_scale + m_middle.x, scene.y / m_scale + m_middle.y};
    if (m_view == render::Matrix3{})
        return seen;
    const Vec3 d{seen.x - m_view.origin.x, seen.y - m_view.origin.y, -m_view.origin.z};
    const double area = m_view.x.x * m_view.y.y - m_view.x.y * m_view.y.x;
    constexpr double kEdgeOn = 1e-6; // the ground is seen from its edge: what is seen has no place in it
    if (std::abs(area) > kEdgeOn)
        return {(d.x * m_view.y.y - d.y * m_view.y.x) / area, (d.y * m_view.x.x - d.x * m_view.x.y) / area};
    return {Dot(m_view.x, d), Dot(m_view.y, d)};
}

std::unique_ptr<LayoutPicture> RecordLayout(const drawing::Drawing& drawing, std::size_t layout,
                                            render::TextEngine& text, render::References& references,
                                            const std::atomic<bool>& stop)
{
    return Recording(drawing, drawing.Layouts().at(layout), text, references, stop).Record();
}

} // namespace sm::scene
