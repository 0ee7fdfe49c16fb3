// SPDX-License-Identifier: GPL-3.0-or-later
// A VARIANT that clears itself.
#pragma once

#include <oaidl.h>
#include <oleauto.h>
#include <utility>

namespace sm::windows {

class OwnedVariant {
public:
    OwnedVariant() { VariantInit(&m_value); }
    OwnedVariant(OwnedVariant&& other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }
    OwnedVariant& operator=(OwnedVariant&& other) noexcept
    {
        std::swap(m_value, other.m_value);
        return *this;
    }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { VariantClear(&m_value); }

    [[nodiscard]] const VARIANT& Raw() const { return m_value; }
    VARIANT& Raw() { return m_value; }
    /// Where a call puts a value that is then owned here; clears the present one first.
    VARIANT* Receive()
    {
        VariantClear(&m_value);
        return &m_value;
    }
    /// Hands the value over to the caller.
    [[nodiscard]] VARIANT Detach()
    {
        const VARIANT value = m_value;
        VariantInit(&m_value);
        return value;
    }

private:
    VARIANT m_value;
};

} // namespace sm::windows
