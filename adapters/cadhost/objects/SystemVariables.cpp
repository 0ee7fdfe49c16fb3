// SPDX-License-Identifier: GPL-3.0-or-later
// The system variables that this host knows.
#include "answers/HostErrors.h"
#include "answers/HostText.h"
#include "objects/HostObjects.h"
#include "session/Views.h"

#include <array>

namespace sm::cadhost {
namespace {

/// The limits of a new drawing, where the file says nothing.
constexpr std::array<double, 4> kMetricLimits{0, 0, 420, 297};
constexpr std::array<double, 4> kImperialLimits{0, 0, 12, 9};

bool IsMetric(const OpenDrawing& open)
{
    return open.File().HeaderInteger("$MEASUREMENT", 0) == 1;
}

/// The active layout's extents as the file holds them, but computed where it holds none, and where they are what is
/// plotted: annotations are placed by these numbers and have to meet the plot, whatever the file remembers. Those of an
/// empty layout are turned inside out, as a CAD program gives them; where they are plotted, the sheet's own corner
/// stands for them.
Box2 ExtentsOf(OpenDrawing& open)
{
    const drawing::Layout& layout = open.LayoutAt(open.Active());
    const bool plotted = open.Configuration(open.Active()).Values().plotType == kPlotExtents;
    const Box2 box =
        layout.extents.Empty() || plotted ? open.Extents(layout.block, DisplayMatrix(open)) : layout.extents;
    constexpr double kNowhere = 1e20;
    if (box.Empty() && plotted)
        return {{0, 0}, {0, 0}};
    return box.Empty() ? Box2{{kNowhere, kNowhere}, {-kNowhere, -kNowhere}} : box;
}

AcadPoint PointOf(Vec2 p)
{
    return {p.x, p.y, 0};
}

using Reader = AcadVariant (*)(const Session&, OpenDrawing&);
struct Variable {
    const char* name;
    Reader read;
};

constexpr Variable kVariables[] = {
    {"LOGINNAME", [](const Session& session, OpenDrawing&) -> AcadVariant { return session.Options().loginName; }},
    {"EXTMIN", [](const Session&, OpenDrawing& open) -> AcadVariant { return PointOf(ExtentsOf(open).min); }},
    {"EXTMAX", [](const Session&, OpenDrawing& open) -> AcadVariant { return PointOf(ExtentsOf(open).max); }},
    {"LIMMIN",
     [](const Session&, OpenDrawing& open) -> AcadVariant {
         const auto limits = LimitsOf(open);
         return AcadPoint{limits[0], limits[1], 0};
     }},
    {"LIMMAX",
     [](const Session&, OpenDrawing& open) -> AcadVariant {
         const auto limits = LimitsOf(open);
         return AcadPoint{limits[2], limits[3], 0};
     }},
    {"CTAB", [](const Session&, OpenDrawing& open) -> AcadVariant { return open.LayoutAt(open.Active()).name; }},
    {"TILEMODE",
     [](const Session&, OpenDrawing& open) -> AcadVariant {
         return std::int32_t{open.LayoutAt(open.Active()).isModel ? 1 : 0};
     }},
    {"DWGNAME", [](const Session&, OpenDrawing& open) -> AcadVariant { return open.FileName(); }},
    {"DWGPREFIX", [](const Session&, OpenDrawing& open) -> AcadVariant { return open.Folder(); }},
    {"MEASUREMENT",
     [](const Session&, OpenDrawing& open) -> AcadVariant { return std::int32_t{IsMetric(open) ? 1 : 0}; }},
};

} // namespace

std::array<double, 4> LimitsOf(const OpenDrawing& open)
{
    const drawing::Layout& layout = open.LayoutAt(open.Active());
    Box2 limits = layout.limits;
    const auto low = open.File().HeaderPoint(layout.isModel ? "$LIMMIN" : "$PLIMMIN");
    const auto high = open.File().HeaderPoint(layout.isModel ? "$LIMMAX" : "$PLIMMAX");
    if (limits.Empty() && low && high)
        limits = {{low->x, low->y}, {high->x, high->y}};
    if (limits.Empty())
        return IsMetric(open) ? kMetricLimits : kImperialLimits;
    return {limits.min.x, limits.min.y, limits.max.x, limits.max.y};
}

AcadVariant SystemVariable(const Session& session, OpenDrawing& open, const std::string& name)
{
    for (const Variable& variable : kVariables) {
        if (SameName(variable.name, name))
            return variable.read(session, open);
    }
    throw HostError("GetVariable: there is no system variable '" + name + "'");
}

} // namespace sm::cadhost
