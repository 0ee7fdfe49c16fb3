// SPDX-License-Identifier: GPL-3.0-or-later
// A counted reference to one COM object.
#pragma once

#include <utility>

namespace sm::windows {

/// Holds one reference of a COM interface, or none; releases it when it goes.
template <class Interface> class ComRef {
public:
    ComRef() = default;
    /// Adds a reference of its own; null is allowed.
    explicit ComRef(Interface* object) : m_object(object)
    {
        if (m_object != nullptr)
            m_object->AddRef();
    }
    ComRef(const ComRef& other) : ComRef(other.m_object) {}
    ComRef(ComRef&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    ComRef& operator=(ComRef other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~ComRef() { Reset(); }

    /// Takes over a reference that the caller owns.
    static ComRef Taken(Interface* object)
    {
        ComRef taken;
        taken.m_object = object;
        return taken;
    }
    void Reset()
    {
        if (Interface* const object = std::exchange(m_object, nullptr))
            object->Release();
    }
    [[nodiscard]] Interface* Get() const { return m_object; }
    Interface* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    /// Where a call puts a reference that is then owned here; lets go of the present one first.
    Interface** Receive()
    {
        Reset();
        return &m_object;
    }
    /// Hands the reference over to the caller.
    [[nodiscard]] Interface* Detach() { return std::exchange(m_object, nullptr); }

private:
    Interface* m_object = nullptr;
};

} // namespace sm::windows
