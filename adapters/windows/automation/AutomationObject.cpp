// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/AutomationObject.h"

#include "windows/automation/AutomationErrors.h"
#include "windows/automation/WideText.h"

#include <algorithm>

namespace sm::windows {
namespace {

/// A busy program turns calls away for a while (it redraws, it shows a menu): five seconds at most.
constexpr int kBusyTries = 50;
constexpr DWORD kBusyPause = 100;

/// The language in which members are named, whatever the user's.
constexpr LCID kNamesLocale = LOCALE_SYSTEM_DEFAULT;

} // namespace

AutomationObject::AutomationObject(IDispatch* object, std::shared_ptr<AutomationLink> link, bool isRoot)
    : m_object(object), m_link(link ? std::move(link) : std::make_shared<AutomationLink>()), m_isRoot(isRoot)
{
    if (!m_object)
        ThrowTypeMismatch();
}

bool AutomationObject::Has(std::string_view member)
{
    ExpectReachable();
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = Resolve(member, id);
    Note(result);
    if (FAILED(result) && result != DISP_E_UNKNOWNNAME && result != DISP_E_MEMBERNOTFOUND)
        throw HostError(TextOfResult(result));
    return SUCCEEDED(result);
}

void AutomationObject::Put(std::string_view member, const OwnedVariant& value)
{
    Invoke(member, DISPATCH_PROPERTYPUT, Reversed(value));
}

HRESULT AutomationObject::Resolve(std::string_view member, DISPID& id)
{
    const auto known =
        std::find_if(m_ids.begin(), m_ids.end(), [&](const auto& entry) { return entry.first == member; });
    if (known != m_ids.end()) {
        id = known->second;
        return S_OK;
    }
    std::wstring name = Wide(member);
    LPOLESTR text = name.data();
    const HRESULT result = m_object->GetIDsOfNames(IID_NULL, &text, 1, kNamesLocale, &id);
    if (SUCCEEDED(result))
        m_ids.emplace_back(member, id);
    return result;
}

OwnedVariant AutomationObject::Invoke(std::string_view member, WORD kind, std::vector<VARIANT> arguments)
{
    ExpectReachable();
    OwnedVariant value;
    EXCEPINFO exception{};
    HRESULT result = S_OK;
    for (int tries = 0; tries == 0 || (IsBusy(result) && tries < kBusyTries); ++tries) {
        if (tries > 0)
            Sleep(kBusyPause);
        DISPID id = DISPID_UNKNOWN;
        result = Resolve(member, id);
        if (SUCCEEDED(result))
            result = InvokeOnce(id, kind, arguments, value.Receive(), exception);
    }
    Note(result);
    if (FAILED(result))
        throw ErrorOfCall(result, exception);
    return value;
}

HRESULT AutomationObject::InvokeOnce(DISPID id, WORD kind, std::vector<VARIANT>& arguments, VARIANT* result,
                                     EXCEPINFO& exception)
{
    DISPID putName = DISPID_PROPERTYPUT;
    const bool puts = kind == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{arguments.data(), puts ? &putName : nullptr, static_cast<UINT>(arguments.size()),
                          puts ? 1U : 0U};
    UINT wrongArgument = 0;
    const HRESULT code = m_object->Invoke(id, IID_NULL, kNamesLocale, kind, &parameters, puts ? nullptr : result,
                                          &exception, &wrongArgument);
    // Objects may be offered for assignment by reference alone.
    if (puts && code == DISP_E_MEMBERNOTFOUND && V_VT(arguments.data()) == VT_DISPATCH)
        return m_object->Invoke(id, IID_NULL, kNamesLocale, DISPATCH_PROPERTYPUTREF, &parameters, nullptr, &exception,
                                &wrongArgument);
    return code;
}

void AutomationObject::ExpectReachable() const
{
    if (!m_isRoot && FAILED(m_link->gone))
        throw HostError(TextOfResult(m_link->gone));
}

void AutomationObject::Note(HRESULT result)
{
    if (IsDisconnected(result))
        m_link->gone = result;
    else if (m_isRoot)
        m_link->gone = S_OK;
}

} // namespace sm::windows
