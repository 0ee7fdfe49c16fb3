// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form/HostLists.h"

#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadDocument.h"
#include "settings/DrawingValues.h"

#include <algorithm>

namespace sm {
namespace {

constexpr std::int32_t kNormalWindow = 1;
constexpr std::int32_t kMinimizedWindow = 2;

void BringDrawingForward(CallContext& context)
{
    CarryPast(context, "BringDrawingForward", [&] {
        IAcadDocument& drawing = ActiveDrawing(context);
        if (drawing.WindowState() == kMinimizedWindow)
            drawing.SetWindowState(kNormalWindow);
    });
}

} // namespace

std::vector<std::string> LayoutNames(IAcadDocument& document)
{
    const auto layouts = Present(document.Layouts(), "Layouts");
    std::vector<std::pair<std::int32_t, std::string>> tabs;
    const std::int32_t count = layouts->Count();
    for (std::int32_t i = 0; i < count; ++i) {
        const auto layout = Present(layouts->Item(i), "Layout");
        tabs.emplace_back(layout->TabOrder(), layout->Name());
    }
    std::stable_sort(tabs.begin(), tabs.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (const auto& [order, name] : tabs)
        names.push_back(name);
    return names;
}

std::vector<std::string> ViewNames(IAcadDocument& document)
{
    const auto views = Present(document.Views(), "Views");
    std::vector<std::string> names;
    const std::int32_t count = views->Count();
    for (std::int32_t i = 0; i < count; ++i)
        names.push_back(Present(views->Item(i), "View")->Name());
    return names;
}

std::string CurrentLayoutName(CallContext& context)
{
    return CarryPast(context, "CurrentLayoutName",
                     [&] { return Present(ActiveDrawing(context).ActiveLayout(), "ActiveLayout")->Name(); })
        .value_or("");
}

std::optional<AcadPoint> PickPoint(CallContext& context)
{
    BringDrawingForward(context);
    return CarryPast(context, "PickPoint",
                     [&] { return Present(ActiveDrawing(context).Utility(), "Utility")->GetPoint("Enter a point: "); });
}

std::optional<std::pair<AcadPoint, AcadPoint>> PickRectangle(CallContext& context)
{
    BringDrawingForward(context);
    return CarryPast(context, "PickRectangle", [&] {
        const auto utility = Present(ActiveDrawing(context).Utility(), "Utility");
        const AcadPoint first = utility->GetPoint("Enter First Corner: ");
        return std::pair(first, utility->GetCorner(first, "Enter Other Corner: "));
    });
}

} // namespace sm
