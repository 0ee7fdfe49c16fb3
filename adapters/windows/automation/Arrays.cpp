// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/Arrays.h"

#include "windows/automation/AutomationErrors.h"

namespace sm::windows {
namespace {

/// The value itself where `value` is a reference to another VARIANT.
const VARIANT& Followed(const VARIANT& value)
{
    if (V_VT(&value) != (VT_BYREF | VT_VARIANT))
        return value;
    if (V_VARIANTREF(&value) == nullptr)
        ThrowTypeMismatch();
    return *V_VARIANTREF(&value);
}

SAFEARRAY* ArrayIn(const VARIANT& value)
{
    if ((V_VT(&value) & VT_BYREF) == 0)
        return V_ARRAY(&value);
    return V_ARRAYREF(&value) == nullptr ? nullptr : *V_ARRAYREF(&value);
}

VARTYPE ElementType(SAFEARRAY* array)
{
    VARTYPE type = VT_EMPTY;
    if (FAILED(SafeArrayGetVartype(array, &type)))
        ThrowTypeMismatch();
    const bool fits = type == VT_VARIANT || SafeArrayGetElemsize(array) <= sizeof(LONGLONG);
    if (!fits || type == VT_RECORD)
        ThrowTypeMismatch();
    return type;
}

OwnedVariant Element(SAFEARRAY* array, VARTYPE type, LONG position)
{
    OwnedVariant element;
    VARIANT& raw = element.Raw();
    void* const place = type == VT_VARIANT ? static_cast<void*>(&raw) : static_cast<void*>(&V_I8(&raw));
    if (FAILED(SafeArrayGetElement(array, &position, place)))
        ThrowTypeMismatch();
    if (type != VT_VARIANT)
        V_VT(&raw) = type;
    return element;
}

} // namespace

bool IsArray(const VARIANT& value)
{
    return (V_VT(&Followed(value)) & VT_ARRAY) != 0;
}

std::vector<OwnedVariant> ElementsOf(const VARIANT& value)
{
    if (!IsArray(value))
        ThrowTypeMismatch();
    SAFEARRAY* const array = ArrayIn(Followed(value));
    std::vector<OwnedVariant> elements;
    if (array == nullptr)
        return elements;
    LONG first = 0, last = 0;
    if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
        FAILED(SafeArrayGetUBound(array, 1, &last)))
        ThrowTypeMismatch();
    const VARTYPE type = ElementType(array);
    for (long long position = first; position <= last; ++position)
        elements.push_back(Element(array, type, static_cast<LONG>(position)));
    return elements;
}

OwnedVariant ArrayOf(VARTYPE type, std::vector<OwnedVariant>& elements)
{
    OwnedVariant value;
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(elements.size()));
    if (array == nullptr)
        throw HostError(TextOfResult(E_OUTOFMEMORY));
    V_VT(&value.Raw()) = static_cast<VARTYPE>(VT_ARRAY | type);
    V_ARRAY(&value.Raw()) = array;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        VARIANT& raw = elements[i].Raw();
        LONG position = static_cast<LONG>(i);
        const bool isPointer = type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN;
        void* const place = type == VT_VARIANT ? static_cast<void*>(&raw)
                            : isPointer        ? static_cast<void*>(V_BSTR(&raw))
                                               : static_cast<void*>(&V_I8(&raw));
        if (FAILED(SafeArrayPutElement(array, &position, place)))
            ThrowTypeMismatch();
    }
    return value;
}

} // namespace sm::windows
