// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/Handed.h"

#include "windows/automation/AutomationObject.h"
#include "windows/automation/Values.h"
#include "windows/host/AutomationHost.h"
#include "windows/publishing/AutomationPublisher.h"
#include "windows/system/Attempted.h"

namespace sm::windows {
namespace {

class HandedDocList final : public INativeDocList {
public:
    explicit HandedDocList(IDispatch* list) : m_list(list) {}
    void ReleaseEntry(std::int32_t index) override { m_list.Call("ReleaseEntry", FromInteger(index)); }

private:
    AutomationObject m_list;
};

class HandedDocOwner final : public INativeDocOwner {
public:
    explicit HandedDocOwner(IDispatch* owner) : m_owner(owner) {}
    std::shared_ptr<INativeDocList> Documents() override
    {
        const ComRef<IDispatch> list = ToObjectOrNull(m_owner.Call("Documents").Raw());
        return list ? std::make_shared<HandedDocList>(list.Get()) : nullptr;
    }

private:
    AutomationObject m_owner;
};

} // namespace

std::shared_ptr<IAcadApplication> HandedApplication(IDispatch* application)
{
    const auto isHost = [&] { return AutomationObject(application).Has("ActiveDocument"); };
    if (application == nullptr || !Attempted(false, isHost))
        return nullptr;
    return CreateAutomationHost(application);
}

std::shared_ptr<IAcadDocument> HandedDocument(IDispatch* document)
{
    return document == nullptr ? nullptr : CreateAutomationDocument(document);
}

std::shared_ptr<IPubDoc> HandedPubDoc(IDispatch* pubDoc)
{
    return pubDoc == nullptr ? nullptr : CreateAutomationPubDoc(pubDoc);
}

std::shared_ptr<INativeDocOwner> HandedOwner(IDispatch* owner)
{
    return owner == nullptr ? nullptr : std::make_shared<HandedDocOwner>(owner);
}

} // namespace sm::windows
