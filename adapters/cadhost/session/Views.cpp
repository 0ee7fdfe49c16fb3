// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Views.h"

#include "answers/HostText.h"
#include "drawing/PlanView.h"
#include "render/FrontEnd.h"

namespace sm::cadhost {
namespace {

double Dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// In an untwisted plan view the host gives display coordinates as world coordinates, wherever its target lies.
template <class View> bool ShowsWorld(const View& view)
{
    return drawing::IsPlanView(view.direction) && view.twist == 0;
}

template <class View> render::Matrix3 MatrixOf(const View& view)
{
    if (ShowsWorld(view))
        return {};
    return render::ViewMatrix(view.direction, view.target, view.twist);
}

Vec3 ToVec(const AcadPoint& point)
{
    return {point.x, point.y, point.z};
}

AcadPoint ToPoint(Vec3 v)
{
    return {v.x, v.y, v.z};
}

} // namespace

render::Matrix3 DisplayMatrix(OpenDrawing& open)
{
    const drawing::Drawing& file = open.File();
    const drawing::Layout& layout = open.LayoutAt(open.Active());
    const drawing::PlotSettings& values = open.Configuration(open.Active()).Values();
    if (values.plotType == kPlotView) {
        for (const drawing::NamedView& view : file.Views()) {
            if (SameName(view.name, values.viewName) && view.paperSpace != layout.isModel)
                return MatrixOf(view);
        }
    }
    if (!layout.isModel)
        return {};
    const auto view = file.ActiveModelView();
    return view ? MatrixOf(*view) : render::Matrix3{};
}

Vec2 CenterOf(const drawing::NamedView& view)
{
    if (!ShowsWorld(view))
        return view.center;
    return view.center + Vec2{view.target.x, view.target.y};
}

AcadPoint DisplayView::ToDisplay(const AcadPoint& point, bool vector) const
{
    return ToPoint(vector ? m_view.ApplyVector(ToVec(point)) : m_view.Apply(ToVec(point)));
}

AcadPoint DisplayView::ToWorld(const AcadPoint& point, bool vector) const
{
    // A view is a rotation and a shift, so its inverse is the transposed one.
    const Vec3 shifted = vector ? ToVec(point) : ToVec(point) + m_view.origin * -1;
    return {Dot(m_view.x, shifted), Dot(m_view.y, shifted), Dot(m_view.z, shifted)};
}

} // namespace sm::cadhost
