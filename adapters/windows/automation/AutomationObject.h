// SPDX-License-Identifier: GPL-3.0-or-later
// An object of another component, driven late-bound: members are named by text, their ids resolved once and kept.
//
// Every operation may throw HostError: with the description that the object gives, or the system's text of the result.
#pragma once

#include "windows/automation/ComRef.h"
#include "windows/automation/OwnedVariant.h"

#include <array>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace sm::windows {

/// What all objects of one component share. Once one of them was found gone with its process, calls on the others fail
/// at once with the same text, so that an operation of many calls ends soon.
struct AutomationLink {
    HRESULT gone = S_OK;
};

class AutomationObject {
public:
    /// `object` isn't null; a reference is added. A root object is always asked itself, and when it answers the link
    /// counts as mended.
    explicit AutomationObject(IDispatch* object, std::shared_ptr<AutomationLink> link = {}, bool isRoot = true);

    /// Whether the object has a member of that name. Makes no call on the member.
    bool Has(std::string_view member);

    /// Calls a method or reads a property. `member` must live as long as the object (a literal). Trailing optional
    /// arguments are left out by not giving them, others by Omitted().
    template <class... Arguments> OwnedVariant Call(std::string_view member, const Arguments&... arguments)
    {
        return Invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, Reversed(arguments...));
    }
    /// Writes a property.
    void Put(std::string_view member, const OwnedVariant& value);

    [[nodiscard]] IDispatch* Dispatch() const { return m_object.Get(); }
    [[nodiscard]] const std::shared_ptr<AutomationLink>& Link() const { return m_link; }

private:
    /// As automation takes them: last first. The values stay owned by the caller.
    template <class... Arguments> static std::vector<VARIANT> Reversed(const Arguments&... arguments)
    {
        const std::array<const OwnedVariant*, sizeof...(Arguments)> list{&arguments...};
        std::vector<VARIANT> reversed;
        for (auto argument = list.rbegin(); argument != list.rend(); ++argument)
            reversed.push_back((*argument)->Raw());
        return reversed;
    }
    OwnedVariant Invoke(std::string_view member, WORD kind, std::vector<VARIANT> arguments);
    HRESULT InvokeOnce(DISPID id, WORD kind, std::vector<VARIANT>& arguments, VARIANT* result, EXCEPINFO& exception);
    HRESULT Resolve(std::string_view member, DISPID& id);
    void ExpectReachable() const;
    void Note(HRESULT result);

    ComRef<IDispatch> m_object;
    std::shared_ptr<AutomationLink> m_link;
    bool m_isRoot;
    std::vector<std::pair<std::string_view, DISPID>> m_ids;
};

} // namespace sm::windows
