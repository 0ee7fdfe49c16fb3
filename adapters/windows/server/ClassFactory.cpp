// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/server/ClassFactory.h"

#include "windows/automation/ComRef.h"
#include "windows/objects/NativeDocObject.h"
#include "windows/objects/PageSetupObject.h"
#include "windows/objects/PluginObject.h"
#include "windows/objects/TransferSettingsObject.h"

namespace sm::windows {
namespace {

template <class Object, class Interface> IUnknown* Make()
{
    return static_cast<Interface*>(new Object);
}

class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const OfferedClass& offered) : m_offered(offered) {}

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (interfaceId != IID_IUnknown && interfaceId != IID_IClassFactory)
            return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID interfaceId, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (outer != nullptr)
            return CLASS_E_NOAGGREGATION;
        HRESULT result = S_OK;
        const HRESULT made = Guarded(m_offered.interfaceId, m_offered.progId, [&] {
            const auto instance = ComRef<IUnknown>::Taken(m_offered.make());
            result = instance->QueryInterface(interfaceId, object);
        });
        return FAILED(made) ? made : result;
    }
    STDMETHODIMP LockServer(BOOL lock) override
    {
        if (lock != FALSE)
            ModuleUse::Lock();
        else
            ModuleUse::Unlock();
        return S_OK;
    }

private:
    virtual ~ClassFactory() = default;

    const OfferedClass& m_offered;
    ModuleUse m_use;
    std::atomic<ULONG> m_references = 1;
};

} // namespace

const std::array<OfferedClass, 4>& OfferedClasses()
{
    static const std::array<OfferedClass, 4> classes{{
        {__uuidof(::cPlugin), __uuidof(::IPlugin), SM_PLUGIN_PROG_ID, "Sheetmaker PDF plug-in for AutoCAD",
         Make<PluginObject, ::IPlugin>},
        {__uuidof(::cNativeDoc), __uuidof(::INativeDoc), SM_NATIVE_DOC_PROG_ID, "Sheetmaker PDF native document",
         Make<NativeDocObject, ::INativeDoc>},
        {__uuidof(::cAcadPageSetup), __uuidof(::IAcadPageSetup), SM_PAGE_SETUP_PROG_ID, "Sheetmaker PDF page setup",
         Make<PageSetupObject, ::IAcadPageSetup>},
        {__uuidof(::cAcadTransferSettings), __uuidof(::IAcadTransferSettings), SM_TRANSFER_SETTINGS_PROG_ID,
         "Sheetmaker PDF transfer settings", Make<TransferSettingsObject, ::IAcadTransferSettings>},
    }};
    return classes;
}

HRESULT GetFactory(REFCLSID classId, REFIID interfaceId, void** factory) noexcept
{
    if (factory == nullptr)
        return E_POINTER;
    *factory = nullptr;
    for (const OfferedClass& offered : OfferedClasses()) {
        if (offered.classId != classId)
            continue;
        const auto made = ComRef<IClassFactory>::Taken(new (std::nothrow) ClassFactory(offered));
        return made ? made->QueryInterface(interfaceId, factory) : E_OUTOFMEMORY;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

} // namespace sm::windows
