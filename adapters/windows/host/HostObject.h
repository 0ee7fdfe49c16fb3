// SPDX-License-Identifier: GPL-3.0-or-later
// What every port of the CAD host has: one automation object, and reads and writes of its members as plain values.
#pragma once

#include "windows/automation/AutomationObject.h"
#include "windows/automation/Values.h"

#include <memory>
#include <string>

namespace sm::windows {

class HostObject {
public:
    explicit HostObject(AutomationObject object) : m_object(std::move(object)) {}
    [[nodiscard]] IDispatch* Dispatch() const { return m_object.Dispatch(); }

protected:
    std::string Text(std::string_view member) { return ToText(m_object.Call(member).Raw()); }
    std::int32_t Integer(std::string_view member) { return ToInteger(m_object.Call(member).Raw()); }
    double Number(std::string_view member) { return ToDouble(m_object.Call(member).Raw()); }
    bool Boolean(std::string_view member) { return ToBoolean(m_object.Call(member).Raw()); }
    AcadPoint Point(std::string_view member) { return ToPoint(m_object.Call(member).Raw()); }

    /// A port over the object that a member answers with; null when it answers with nothing.
    template <class Port, class... Arguments>
    std::shared_ptr<Port> Object(std::string_view member, const Arguments&... arguments)
    {
        const ComRef<IDispatch> found = ToObjectOrNull(m_object.Call(member, arguments...).Raw());
        return found ? std::make_shared<Port>(Linked(found)) : nullptr;
    }
    /// An object of the same host.
    AutomationObject Linked(const ComRef<IDispatch>& object)
    {
        return AutomationObject(object.Get(), m_object.Link(), false);
    }

    AutomationObject m_object;
};

} // namespace sm::windows
