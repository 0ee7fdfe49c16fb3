// SPDX-License-Identifier: GPL-3.0-or-later
// The edge of the component: what C++ code throws becomes an automation error, and values find their way out.
#pragma once

#include "ports/Variant.h"
#include "windows/automation/WideText.h"

#include <oaidl.h>
#include <oleauto.h>
#include <stdexcept>

namespace sm::windows {

/// An automation error of our own: an argument that can't be used as what it stands for.
class BadArgument : public std::runtime_error {
public:
    BadArgument(HRESULT result, const std::string& description) : std::runtime_error(description), m_result(result) {}
    [[nodiscard]] HRESULT Result() const { return m_result; }

private:
    HRESULT m_result;
};

/// The failing result of the exception under way, with a description in the thread's error object of `interfaceId`.
/// To be called in a handler.
HRESULT ResultOfException(REFIID interfaceId, const char* source) noexcept;

/// Runs `body`. What it throws becomes a failing result; nothing escapes.
template <class Body> HRESULT Guarded(REFIID interfaceId, const char* source, const Body& body) noexcept
{
    try {
        SetErrorInfo(0, nullptr);
        body();
        return S_OK;
    } catch (...) {
        return ResultOfException(interfaceId, source);
    }
}

/// Throws BadArgument (E_POINTER) for a caller that gave no place for a result.
template <class Value> Value& Place(Value* place)
{
    if (place == nullptr)
        throw BadArgument(E_POINTER, "There is no place for the result");
    return *place;
}

/// A new text of automation, for the caller to free. Throws std::bad_alloc.
BSTR NewText(const std::string& text);
/// Null is empty text.
std::string TextOf(BSTR text);
/// A new value of automation, for the caller to clear.
VARIANT NewValue(const AcadVariant& value);

} // namespace sm::windows
