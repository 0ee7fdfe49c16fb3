// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/host/AutomationHost.h"

#include "windows/host/AutomationDocument.h"

namespace sm::windows {
namespace {

template <class Known, class Port> IDispatch* DispatchOf(const std::shared_ptr<Port>& port)
{
    const auto known = std::dynamic_pointer_cast<Known>(port);
    return known == nullptr ? nullptr : known->Dispatch();
}

} // namespace

std::shared_ptr<IAcadApplication> CreateAutomationHost(IDispatch* application)
{
    return std::make_shared<AutomationApplication>(AutomationObject(application));
}

std::shared_ptr<IAcadDocument> CreateAutomationDocument(IDispatch* document)
{
    return std::make_shared<AutomationDocument>(AutomationObject(document));
}

IDispatch* AutomationOf(const std::shared_ptr<IAcadApplication>& application)
{
    return DispatchOf<AutomationApplication>(application);
}

IDispatch* AutomationOf(const std::shared_ptr<IAcadDocument>& document)
{
    return DispatchOf<AutomationDocument>(document);
}

IDispatch* AutomationOf(const std::shared_ptr<IAcadLayout>& layout)
{
    return DispatchOf<AutomationLayout>(layout);
}

} // namespace sm::windows
