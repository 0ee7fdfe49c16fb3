// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/host/AutomationDocument.h"

#include "windows/automation/AutomationErrors.h"

#include <algorithm>

namespace sm::windows {

std::shared_ptr<IAcadApplication> AutomationDocument::Application()
{
    const ComRef<IDispatch> application = ToObjectOrNull(m_object.Call("Application").Raw());
    if (!application)
        return nullptr;
    return std::make_shared<AutomationApplication>(AutomationObject(application.Get(), m_object.Link()));
}

std::int32_t AutomationDocument::HWND()
{
    // A 64-bit host may answer with the handle as wide as a pointer; its upper half carries nothing.
    const OwnedVariant handle = m_object.Call("HWND");
    return V_VT(&handle.Raw()) == VT_I8 ? static_cast<std::int32_t>(V_I8(&handle.Raw())) : ToInteger(handle.Raw());
}

void AutomationDocument::SetActiveLayout(const std::shared_ptr<IAcadLayout>& layout)
{
    const auto known = std::dynamic_pointer_cast<AutomationLayout>(layout);
    if (layout != nullptr && known == nullptr)
        ThrowTypeMismatch();
    m_object.Put("ActiveLayout", FromObject(known == nullptr ? nullptr : known->Dispatch()));
}

AcadVariant AutomationDocument::GetVariable(const std::string& name)
{
    return ToAcadVariant(m_object.Call("GetVariable", FromText(name)).Raw());
}

std::array<double, 4> AutomationDocument::Limits()
{
    std::array<double, 4> limits{};
    const std::vector<double> numbers = ToDoubles(m_object.Call("Limits").Raw(), limits.size());
    std::copy_n(numbers.begin(), limits.size(), limits.begin());
    return limits;
}

} // namespace sm::windows
