// SPDX-License-Identifier: GPL-3.0-or-later
// Arguments as scripts hand them over, in the form that operations with objects by reference take.
#pragma once

#include <oaidl.h>
#include <vector>

namespace sm::windows {

/// A copy of a call's arguments in which every object stands by reference. Scripts pass a variable as a reference to a
/// whole VARIANT, and an expression by value; neither goes where an object by reference is wanted, while a reference to
/// an object goes wherever an object is wanted. Null, which is what scripts say for no object, is one where one is
/// wanted. The original arguments outlive it and stay their owners.
class ObjectsByReference {
public:
    /// `objects` tells of each argument, the first one first, whether an object is wanted.
    ObjectsByReference(const DISPPARAMS& original, const std::vector<bool>& objects) : m_arguments(original)
    {
        if (original.rgvarg == nullptr)
            return;
        m_values.assign(original.rgvarg, original.rgvarg + original.cArgs);
        for (std::size_t i = 0; i < m_values.size(); ++i) { // the last one first
            const std::size_t place = m_values.size() - 1 - i;
            Refer(m_values[i], original.cNamedArgs == 0 && place < objects.size() && objects[place]);
        }
        m_arguments.rgvarg = m_values.data();
    }
    ObjectsByReference(const ObjectsByReference&) = delete;
    ObjectsByReference& operator=(const ObjectsByReference&) = delete;

    DISPPARAMS& Arguments() { return m_arguments; }

private:
    void Refer(VARIANT& value, bool isObject)
    {
        const bool variable = V_VT(&value) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&value) != nullptr;
        const VARIANT& held = variable ? *V_VARIANTREF(&value) : value;
        const bool isNull = isObject && V_VT(&held) == VT_NULL;
        if (V_VT(&held) != VT_DISPATCH && !isNull)
            return;
        // A place of its own: the caller's variable never changes.
        if (m_objects.empty())
            m_objects.resize(m_values.size());
        IDispatch*& place = m_objects[static_cast<std::size_t>(&value - m_values.data())];
        place = isNull ? nullptr : V_DISPATCH(&held);
        V_VT(&value) = VT_BYREF | VT_DISPATCH;
        V_DISPATCHREF(&value) = &place;
    }

    DISPPARAMS m_arguments;
    std::vector<VARIANT> m_values;
    std::vector<IDispatch*> m_objects;
};

} // namespace sm::windows
