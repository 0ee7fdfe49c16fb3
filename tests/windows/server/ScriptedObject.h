// SPDX-License-Identifier: GPL-3.0-or-later
// An object of a front end, its members given by the test.
#pragma once

#include <windows.h>

#include <cwchar>
#include <functional>
#include <oaidl.h>
#include <string>
#include <utility>
#include <vector>

namespace sm::windows {

/// Lives on the stack; counts its references, the one of its owner included. Members are called whatever way they are
/// called, with the first argument given first.
class ScriptedObject final : public IDispatch {
public:
    using Member = std::function<void(const std::vector<VARIANT>& arguments, VARIANT& result)>;

    ScriptedObject& With(const std::wstring& name, Member member)
    {
        m_members.emplace_back(name, std::move(member));
        return *this;
    }
    /// A property that gives an object, or none.
    ScriptedObject& WithObject(const std::wstring& name, IDispatch* object)
    {
        return With(name, [object](const std::vector<VARIANT>&, VARIANT& result) {
            V_VT(&result) = VT_DISPATCH;
            V_DISPATCH(&result) = object;
            if (object != nullptr)
                object->AddRef();
        });
    }
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
        for (std::size_t i = 0; i < m_members.size(); ++i)
            if (_wcsicmp(names[0], m_members[i].first.c_str()) == 0) {
                ids[0] = static_cast<DISPID>(i + 1);
                return S_OK;
            }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*,
                        UINT*) override
    {
        VARIANT unwanted;
        VariantInit(&unwanted);
        const std::vector<VARIANT> given(std::reverse_iterator(arguments->rgvarg + arguments->cArgs),
                                         std::reverse_iterator(arguments->rgvarg));
        m_members.at(static_cast<std::size_t>(id - 1)).second(given, result == nullptr ? unwanted : *result);
        VariantClear(&unwanted);
        return S_OK;
    }

private:
    std::vector<std::pair<std::wstring, Member>> m_members;
    ULONG m_references = 1;
};

} // namespace sm::windows
