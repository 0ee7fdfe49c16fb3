// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/testhost/ComCrossing.h"

#include "windows/host/AutomationDocument.h"
#include "windows/host/AutomationHost.h"
#include "windows/publishing/AutomationPublisher.h"
#include "windows/testhost/ClassFactory.h"
#include "windows/testhost/HostThread.h"
#include "windows/testhost/Ids.h"
#include "windows/testhost/TestHost.h"

#include <objbase.h>
#include <optional>
#include <stdexcept>

namespace sm::testhost {
namespace {

using windows::ComRef;

/// A class of this process, whose next instance is the object that was put there.
class OfferedClass {
public:
    OfferedClass(const wchar_t* progId, const GUID& id)
    {
        IClassFactory* const factory = NewClassFactory([this] { return std::exchange(m_next, {}); });
        const bool registered =
            RegisterName(progId, id, L"", L"") &&
            SUCCEEDED(CoRegisterClassObject(id, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_registration));
        factory->Release();
        if (!registered)
            throw std::runtime_error("the classes of the publishing library can't be offered");
    }
    ~OfferedClass() { CoRevokeClassObject(m_registration); }
    OfferedClass(const OfferedClass&) = delete;
    OfferedClass& operator=(const OfferedClass&) = delete;
    void PutNext(ComRef<IDispatch> object) { m_next = std::move(object); }

private:
    ComRef<IDispatch> m_next;
    DWORD m_registration = 0;
};

class Apartment {
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

class ComCrossing final : public Crossing {
public:
    explicit ComCrossing(Road road)
    {
        if (road == Road::Apart)
            m_thread.emplace();
    }

    Application Over(const Application& own) override { return windows::CreateAutomationHost(Carry(Offer(own)).Get()); }
    Document Over(const Document& own) override
    {
        return own == nullptr ? nullptr : windows::CreateAutomationDocument(Carry(Offer(own)).Get());
    }
    Layout Over(const Layout& own) override
    {
        return own == nullptr ? nullptr : std::make_shared<windows::AutomationLayout>(ObjectOver(Offer(own)));
    }
    Block Over(const Block& own) override
    {
        return own == nullptr ? nullptr : std::make_shared<windows::AutomationBlock>(ObjectOver(Offer(own)));
    }
    PubDoc Over(const PubDoc& own) override
    {
        m_pubDocs.PutNext(Carry(Offer(own)));
        return m_publisher->CreatePubDoc();
    }
    Log Over(const Log& own) override
    {
        m_logs.PutNext(Carry(Offer(own)));
        return m_publisher->CreateConversionLog();
    }

private:
    ComRef<IDispatch> Carry(const ComRef<IDispatch>& object) { return m_thread ? m_thread->Carry(object) : object; }
    windows::AutomationObject ObjectOver(const ComRef<IDispatch>& object)
    {
        return windows::AutomationObject(Carry(object).Get());
    }

    Apartment m_apartment;
    std::optional<HostThread> m_thread;
    OfferedClass m_pubDocs{L"TwSmPubLib.PubDoc", kPubDocClass};
    OfferedClass m_logs{L"TwSmPubLib.ConversionLog", kLogClass};
    std::unique_ptr<IPublishingLibrary> m_publisher = windows::CreateAutomationPublisher();
};

} // namespace

std::unique_ptr<Crossing> MakeComCrossing(Road road)
{
    return std::make_unique<ComCrossing>(road);
}

} // namespace sm::testhost
