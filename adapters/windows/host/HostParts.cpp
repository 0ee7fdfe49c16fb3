// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks, entities and the small objects of a drawing.
#include "windows/host/HostPorts.h"

namespace sm::windows {
namespace {

OwnedVariant FromPoint(const AcadPoint& point)
{
    return FromDoubles({point.x, point.y, point.z});
}

} // namespace

std::vector<std::shared_ptr<IAcadAttribute>> AutomationReference::Attributes(std::string_view member)
{
    std::vector<std::shared_ptr<IAcadAttribute>> attributes;
    for (const ComRef<IDispatch>& object : ToObjects(m_object.Call(member).Raw()))
        attributes.push_back(object ? std::make_shared<AutomationAttribute>(Linked(object)) : nullptr);
    return attributes;
}

void AutomationEntity::GetBoundingBox(AcadPoint& lowerLeft, AcadPoint& upperRight)
{
    OwnedVariant least, most;
    m_object.Call("GetBoundingBox", ByReference(least), ByReference(most));
    const AcadPoint low = ToPoint(least.Raw());
    upperRight = ToPoint(most.Raw());
    lowerLeft = low;
}

IAcadBlockReference* AutomationEntity::AsBlockReference()
{
    // Inserts of several kinds are references; what they have in common are these members.
    if (!m_reference && m_object.Has("HasAttributes") && m_object.Has("InsertionPoint"))
        m_reference = std::make_unique<AutomationReference>(m_object);
    return m_reference.get();
}

AcadXData AutomationDictionaries::GetXData(const std::string& appName)
{
    OwnedVariant codes, values;
    m_object.Call("GetXData", FromText(appName), ByReference(codes), ByReference(values));
    return ToXData(codes.Raw(), values.Raw());
}

void AutomationDictionaries::SetXData(const AcadXData& data)
{
    m_object.Call("SetXData", FromShorts(data.codes), FromVariants(data.values));
}

AcadPoint AutomationUtility::TranslateCoordinates(const AcadPoint& point, std::int32_t from, std::int32_t to,
                                                  std::int32_t displacement)
{
    return ToPoint(m_object
                       .Call("TranslateCoordinates", FromPoint(point), FromInteger(from), FromInteger(to),
                             FromInteger(displacement))
                       .Raw());
}

AcadPoint AutomationUtility::GetPoint(const std::string& prompt)
{
    return ToPoint(m_object.Call("GetPoint", Omitted(), FromText(prompt)).Raw());
}

AcadPoint AutomationUtility::GetCorner(const AcadPoint& first, const std::string& prompt)
{
    return ToPoint(m_object.Call("GetCorner", FromPoint(first), FromText(prompt)).Raw());
}

bool AutomationPlot::PlotToFile(const std::string& path)
{
    return ToBoolean(m_object.Call("PlotToFile", FromText(path)).Raw());
}

} // namespace sm::windows
