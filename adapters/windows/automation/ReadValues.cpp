// SPDX-License-Identifier: GPL-3.0-or-later
// VARIANTs as values of the ports.
#include "windows/automation/Arrays.h"
#include "windows/automation/AutomationErrors.h"
#include "windows/automation/Values.h"
#include "windows/automation/WideText.h"

#include <cmath>
#include <limits>

namespace sm::windows {
namespace {

OwnedVariant Plain(const VARIANT& value)
{
    OwnedVariant plain;
    if (FAILED(VariantCopyInd(&plain.Raw(), const_cast<VARIANT*>(&value))))
        ThrowTypeMismatch();
    return plain;
}

bool IsSimple(VARTYPE type)
{
    switch (type) {
    case VT_EMPTY:
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
    case VT_BOOL:
    case VT_BSTR:
        return true;
    default:
        return false;
    }
}

bool IsNothing(const VARIANT& value)
{
    return V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL;
}

/// Nothing is an empty text, 0 and False, as automation has it; null is taken likewise, since databases behind hosts
/// and some of their languages give it for an empty text.
OwnedVariant As(VARTYPE type, const VARIANT& value)
{
    OwnedVariant plain = Plain(value);
    if (IsNothing(plain.Raw()))
        plain = OwnedVariant();
    OwnedVariant changed;
    if (!IsSimple(V_VT(&plain.Raw())) ||
        FAILED(VariantChangeTypeEx(&changed.Raw(), const_cast<VARIANT*>(&plain.Raw()), LOCALE_INVARIANT, 0, type)))
        ThrowTypeMismatch();
    return changed;
}

bool IsFraction(VARTYPE type)
{
    return type == VT_R4 || type == VT_R8 || type == VT_CY || type == VT_DECIMAL;
}

std::int16_t ToShort(const VARIANT& value)
{
    return V_I2(&As(VT_I2, value).Raw());
}

} // namespace

std::string ToText(const VARIANT& value)
{
    const OwnedVariant text = As(VT_BSTR, value);
    const BSTR found = V_BSTR(&text.Raw());
    return found == nullptr ? std::string() : Utf8({found, SysStringLen(found)});
}

std::int32_t ToInteger(const VARIANT& value)
{
    return V_I4(&As(VT_I4, value).Raw());
}

double ToDouble(const VARIANT& value)
{
    return V_R8(&As(VT_R8, value).Raw());
}

bool ToBoolean(const VARIANT& value)
{
    return V_BOOL(&As(VT_BOOL, value).Raw()) != VARIANT_FALSE;
}

LocalDateTime ToDate(const VARIANT& value)
{
    const OwnedVariant plain = Plain(value);
    if (V_VT(&plain.Raw()) != VT_DATE || !(std::abs(V_DATE(&plain.Raw())) < 3e6))
        ThrowTypeMismatch();
    const double date = V_DATE(&plain.Raw()), whole = std::trunc(date);
    const auto days = std::chrono::days(static_cast<int>(whole));
    const auto seconds = std::chrono::seconds(std::llround(std::abs(date - whole) * 86400));
    return std::chrono::local_days(std::chrono::year(1899) / 12 / 30) + days + seconds;
}

ComRef<IDispatch> ToObjectOrNull(const VARIANT& value)
{
    const OwnedVariant plain = Plain(value);
    const VARIANT& raw = plain.Raw();
    if (IsNothing(raw))
        return {};
    if (V_VT(&raw) == VT_DISPATCH)
        return ComRef<IDispatch>(V_DISPATCH(&raw));
    ComRef<IDispatch> object;
    if (V_VT(&raw) != VT_UNKNOWN)
        ThrowTypeMismatch();
    if (V_UNKNOWN(&raw) != nullptr &&
        FAILED(V_UNKNOWN(&raw)->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(object.Receive()))))
        ThrowTypeMismatch();
    return object;
}

ComRef<IDispatch> ToObject(const VARIANT& value)
{
    ComRef<IDispatch> object = ToObjectOrNull(value);
    if (!object)
        ThrowTypeMismatch();
    return object;
}

AcadPoint ToPoint(const VARIANT& value)
{
    const std::vector<double> numbers = ToDoubles(value, 2);
    return {numbers[0], numbers[1], numbers.size() > 2 ? numbers[2] : 0};
}

std::vector<double> ToDoubles(const VARIANT& value, std::size_t atLeast)
{
    std::vector<double> numbers;
    for (const OwnedVariant& element : ElementsOf(value))
        numbers.push_back(ToDouble(element.Raw()));
    if (numbers.size() < atLeast)
        ThrowTypeMismatch();
    return numbers;
}

std::vector<std::string> ToTexts(const VARIANT& value)
{
    std::vector<std::string> texts;
    if (IsNothing(value))
        return texts;
    for (const OwnedVariant& element : ElementsOf(value))
        texts.push_back(ToText(element.Raw()));
    return texts;
}

std::vector<ComRef<IDispatch>> ToObjects(const VARIANT& value)
{
    std::vector<ComRef<IDispatch>> objects;
    if (IsNothing(value))
        return objects;
    for (const OwnedVariant& element : ElementsOf(value))
        objects.push_back(ToObjectOrNull(element.Raw()));
    return objects;
}

AcadVariant ToAcadVariant(const VARIANT& value)
{
    if (IsArray(value))
        return ToPoint(value);
    const OwnedVariant plain = Plain(value);
    const VARIANT& raw = plain.Raw();
    if (IsNothing(raw))
        return {};
    if (V_VT(&raw) == VT_BSTR)
        return ToText(raw);
    if (V_VT(&raw) == VT_BOOL)
        return ToBoolean(raw);
    if (IsFraction(V_VT(&raw)))
        return ToDouble(raw);
    return ToInteger(raw);
}

AcadXData ToXData(const VARIANT& codes, const VARIANT& values)
{
    AcadXData data;
    if (IsNothing(codes) && IsNothing(values))
        return data;
    for (const OwnedVariant& element : ElementsOf(codes))
        data.codes.push_back(ToShort(element.Raw()));
    for (const OwnedVariant& element : ElementsOf(values))
        data.values.push_back(ToAcadVariant(element.Raw()));
    if (data.codes.size() != data.values.size())
        ThrowTypeMismatch();
    return data;
}

} // namespace sm::windows
