// SPDX-License-Identifier: GPL-3.0-or-later
// What every object of the component has in common: counted references, calls by name, errors with a description.
#pragma once

#include "windows/objects/CallGuard.h"
#include "windows/objects/ModuleUse.h"
#include "windows/objects/ObjectsByReference.h"
#include "windows/objects/TypeInfos.h"

#include <atomic>

namespace sm::windows {

/// An object with one dual interface, which its class implements. Made with one reference, which is its maker's; goes
/// with its last one. It lives in one apartment, but references may be counted from anywhere.
template <class Interface> class DualObject : public Interface, public ISupportErrorInfo {
public:
    DualObject() = default;
    DualObject(const DualObject&) = delete;
    DualObject& operator=(const DualObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (interfaceId == IID_IUnknown || interfaceId == IID_IDispatch || interfaceId == __uuidof(Interface))
            *object = static_cast<Interface*>(this);
        else if (interfaceId == IID_ISupportErrorInfo)
            *object = static_cast<ISupportErrorInfo*>(this);
        else
            return E_NOINTERFACE;
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

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID interfaceId) override
    {
        return interfaceId == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        if (count == nullptr)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT number, LCID /*locale*/, ITypeInfo** info) override
    {
        if (info == nullptr)
            return E_POINTER;
        *info = nullptr;
        if (number != 0)
            return DISP_E_BADINDEX;
        if (!Description())
            return E_FAIL;
        *info = ComRef<ITypeInfo>(m_description).Detach();
        return S_OK;
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID /*locale*/, DISPID* ids) override
    {
        if (names == nullptr || ids == nullptr)
            return E_POINTER;
        if (reserved != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        return Description() ? m_description->GetIDsOfNames(names, count, ids) : E_FAIL;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID /*locale*/, WORD kind, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override
    {
        if (reserved != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        if (arguments == nullptr)
            return E_INVALIDARG;
        if (!Description())
            return E_FAIL;
        if (!MayTake(*m_description.Get(), member, kind, arguments->cArgs))
            return DISP_E_BADPARAMCOUNT;
        HRESULT invoked = S_OK;
        const HRESULT ready = Guarded(__uuidof(Interface), SourceName(), [&] {
            ObjectsByReference given(*arguments, ObjectPlaces(*m_description.Get(), member, kind));
            invoked = m_description->Invoke(static_cast<Interface*>(this), member, kind, &given.Arguments(), result,
                                            exception, wrongArgument);
        });
        return FAILED(ready) ? ready : invoked;
    }

protected:
    virtual ~DualObject() = default;

    /// Runs `body` with the object kept alive: a caller may let go of it while the call waits for the host.
    template <class Body> HRESULT Guard(const Body& body) noexcept
    {
        const ComRef<Interface> alive(this);
        return Guarded(__uuidof(Interface), SourceName(), body);
    }
    /// What errors name as their source.
    [[nodiscard]] virtual const char* SourceName() const = 0;

    // Results of the plug-in's operations in the types of automation.
    template <class Read> HRESULT Give(VARIANT_BOOL* place, const Read& read) noexcept
    {
        return Guard([&] { Place(place) = VARIANT_FALSE, *place = read(); });
    }
    template <class Read> HRESULT Give(LONG* place, const Read& read) noexcept
    {
        return Guard([&] { Place(place) = 0, *place = read(); });
    }
    template <class Read> HRESULT Give(double* place, const Read& read) noexcept
    {
        return Guard([&] { Place(place) = 0, *place = read(); });
    }
    template <class Read> HRESULT Give(BSTR* place, const Read& read) noexcept
    {
        return Guard([&] { Place(place) = nullptr, *place = NewText(read()); });
    }
    template <class Read> HRESULT Give(VARIANT* place, const Read& read) noexcept
    {
        return Guard([&] { VariantInit(&Place(place)), *place = NewValue(read()); });
    }

private:
    bool Description()
    {
        if (!m_description) {
            m_types = TypeInfos::Shared();
            if (m_types)
                m_description = m_types->Of(__uuidof(Interface));
        }
        return static_cast<bool>(m_description);
    }

    ModuleUse m_use;
    std::atomic<ULONG> m_references = 1;
    std::shared_ptr<TypeInfos> m_types;
    ComRef<ITypeInfo> m_description; ///< read on the first call by name
};

} // namespace sm::windows
