// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/host/AutomationLayout.h"

namespace sm::windows {

std::string AutomationLayout::GetLocaleMediaName(const std::string& canonicalName)
{
    return ToText(m_object.Call("GetLocaleMediaName", FromText(canonicalName)).Raw());
}

void AutomationLayout::SetWindowToPlot(const AcadPoint& lowerLeft, const AcadPoint& upperRight)
{
    m_object.Call("SetWindowToPlot", FromDoubles({lowerLeft.x, lowerLeft.y}),
                  FromDoubles({upperRight.x, upperRight.y}));
}

void AutomationLayout::SetPlotOrigin(const AcadPoint& origin)
{
    m_object.Put("PlotOrigin", FromDoubles({origin.x, origin.y}));
}

void AutomationLayout::SetCustomScale(double numerator, double denominator)
{
    m_object.Call("SetCustomScale", FromDouble(numerator), FromDouble(denominator));
}

void AutomationLayout::GetCorners(std::string_view member, AcadPoint& lowerLeft, AcadPoint& upperRight)
{
    OwnedVariant least, most;
    m_object.Call(member, ByReference(least), ByReference(most));
    const AcadPoint low = ToPoint(least.Raw());
    upperRight = ToPoint(most.Raw());
    lowerLeft = low;
}

void AutomationLayout::GetNumbers(std::string_view member, double& first, double& second)
{
    double one = first, other = second;
    m_object.Call(member, ByReference(one), ByReference(other));
    first = one;
    second = other;
}

} // namespace sm::windows
