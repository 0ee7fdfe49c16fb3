// SPDX-License-Identifier: GPL-3.0-or-later
// Values of the ports as VARIANTs.
#include "windows/automation/Arrays.h"
#include "windows/automation/AutomationErrors.h"
#include "windows/automation/Values.h"
#include "windows/automation/WideText.h"

namespace sm::windows {
namespace {

template <class List, class Make> OwnedVariant Listed(VARTYPE type, const List& values, Make make)
{
    std::vector<OwnedVariant> elements;
    elements.reserve(values.size());
    for (const auto& value : values)
        elements.push_back(make(value));
    return ArrayOf(type, elements);
}

OwnedVariant FromShort(std::int16_t value)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_I2;
    V_I2(&made.Raw()) = value;
    return made;
}

struct Maker {
    OwnedVariant operator()(std::monostate) const { return {}; }
    OwnedVariant operator()(std::int32_t value) const { return FromInteger(value); }
    OwnedVariant operator()(double value) const { return FromDouble(value); }
    OwnedVariant operator()(const std::string& value) const { return FromText(value); }
    OwnedVariant operator()(bool value) const { return FromBoolean(value); }
    OwnedVariant operator()(const AcadPoint& value) const { return FromDoubles({value.x, value.y, value.z}); }
};

} // namespace

OwnedVariant FromText(const std::string& text)
{
    const std::wstring wide = Wide(text);
    OwnedVariant made;
    V_BSTR(&made.Raw()) = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (V_BSTR(&made.Raw()) == nullptr)
        throw HostError(TextOfResult(E_OUTOFMEMORY));
    V_VT(&made.Raw()) = VT_BSTR;
    return made;
}

OwnedVariant FromInteger(std::int32_t value)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_I4;
    V_I4(&made.Raw()) = value;
    return made;
}

OwnedVariant FromDouble(double value)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_R8;
    V_R8(&made.Raw()) = value;
    return made;
}

OwnedVariant FromBoolean(bool value)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_BOOL;
    V_BOOL(&made.Raw()) = value ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

OwnedVariant FromDate(LocalDateTime time)
{
    using namespace std::chrono;
    const LocalDateTime origin = local_days(year(1899) / December / 30);
    const auto days = floor<std::chrono::days>(time - origin);
    const double dayFraction = static_cast<double>(((time - origin) - days).count()) / 86400;
    const double whole = static_cast<double>(days.count());
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_DATE;
    // Before the origin the fraction counts away from zero while the time still runs forwards.
    V_DATE(&made.Raw()) = whole < 0 ? whole - dayFraction : whole + dayFraction;
    return made;
}

OwnedVariant FromObject(IDispatch* object)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_DISPATCH;
    V_DISPATCH(&made.Raw()) = ComRef<IDispatch>(object).Detach();
    return made;
}

OwnedVariant FromDoubles(std::initializer_list<double> values)
{
    return Listed(VT_R8, values, FromDouble);
}

OwnedVariant FromShorts(const std::vector<std::int16_t>& values)
{
    return Listed(VT_I2, values, FromShort);
}

OwnedVariant FromVariants(const std::vector<AcadVariant>& values)
{
    return Listed(VT_VARIANT, values, FromAcadVariant);
}

OwnedVariant FromTexts(const std::vector<std::string>& values)
{
    return Listed(VT_VARIANT, values, FromText);
}

OwnedVariant FromObjects(const std::vector<ComRef<IDispatch>>& values)
{
    return Listed(VT_VARIANT, values, [](const ComRef<IDispatch>& object) { return FromObject(object.Get()); });
}

OwnedVariant FromAcadVariant(const AcadVariant& value)
{
    return std::visit(Maker{}, value);
}

OwnedVariant Omitted()
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_ERROR;
    V_ERROR(&made.Raw()) = DISP_E_PARAMNOTFOUND;
    return made;
}

OwnedVariant ByReference(OwnedVariant& value)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&made.Raw()) = &value.Raw();
    return made;
}

OwnedVariant ByReference(double& value)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_BYREF | VT_R8;
    V_R8REF(&made.Raw()) = &value;
    return made;
}

OwnedVariant ByReference(VARIANT_BOOL& value)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&made.Raw()) = &value;
    return made;
}

} // namespace sm::windows
