// SPDX-License-Identifier: GPL-3.0-or-later
// A CAD host without a drawing: enough to be taken as an application.
#pragma once

#include <windows.h>

#include <cwchar>
#include <oaidl.h>

namespace sm::windows {

/// Lives on the stack; counts its references, the one of its owner included.
class FakeApplication final : public IDispatch {
public:
    [[nodiscard]] ULONG References() const { return m_references; }

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** object) override
    {
        const bool known = interfaceId == IID_IUnknown || interfaceId == IID_IDispatch;
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override { return --m_references; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override
    {
        if (_wcsicmp(names[0], L"ActiveDocument") != 0)
            return DISP_E_UNKNOWNNAME;
        ids[0] = 1;
        return S_OK;
    }
    /// There is no drawing.
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override
    {
        if (result != nullptr) {
            V_VT(result) = VT_DISPATCH;
            V_DISPATCH(result) = nullptr;
        }
        return S_OK;
    }

private:
    ULONG m_references = 1;
};

} // namespace sm::windows
