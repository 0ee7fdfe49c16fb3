// SPDX-License-Identifier: GPL-3.0-or-later
// Values of the ports as VARIANTs and back: the only place that knows how.
//
// Readers throw HostError when a value can't be taken as what is asked for. Numbers, Booleans and texts are taken for
// one another as automation does it (a text "12" is the number 12, whatever the locale); nothing and null are the empty
// text, 0 and False; objects, dates and arrays never are any of these. Values by reference are followed.
#pragma once

#include "ports/IPubDoc.h"
#include "ports/Variant.h"
#include "windows/automation/ComRef.h"
#include "windows/automation/OwnedVariant.h"

#include <initializer_list>
#include <vector>

namespace sm::windows {

OwnedVariant FromText(const std::string& text);
OwnedVariant FromInteger(std::int32_t value);
OwnedVariant FromDouble(double value);
OwnedVariant FromBoolean(bool value);
/// A date of automation: days since 30 December 1899, seconds as their fraction.
OwnedVariant FromDate(LocalDateTime time);
/// Null becomes a null object.
OwnedVariant FromObject(IDispatch* object);
/// An array of doubles.
OwnedVariant FromDoubles(std::initializer_list<double> values);
/// An array of 16-bit integers.
OwnedVariant FromShorts(const std::vector<std::int16_t>& values);
/// An array of VARIANTs; a point is an array of three doubles within it.
OwnedVariant FromVariants(const std::vector<AcadVariant>& values);
/// An array of VARIANTs that hold texts, and one that holds objects.
OwnedVariant FromTexts(const std::vector<std::string>& values);
OwnedVariant FromObjects(const std::vector<ComRef<IDispatch>>& values);
OwnedVariant FromAcadVariant(const AcadVariant& value);
/// What stands for an optional argument that is left out before others that are given.
OwnedVariant Omitted();
/// Arguments that the called operation fills; the variables must outlive the call.
OwnedVariant ByReference(OwnedVariant& value);
OwnedVariant ByReference(double& value);
OwnedVariant ByReference(VARIANT_BOOL& value);

std::string ToText(const VARIANT& value);
std::int32_t ToInteger(const VARIANT& value);
double ToDouble(const VARIANT& value);
bool ToBoolean(const VARIANT& value);
/// Seconds resolution.
LocalDateTime ToDate(const VARIANT& value);
/// Null for nothing and for a null object.
ComRef<IDispatch> ToObjectOrNull(const VARIANT& value);
/// Never null.
ComRef<IDispatch> ToObject(const VARIANT& value);
/// Of an array of two or more numbers.
AcadPoint ToPoint(const VARIANT& value);
/// Of an array of at least `atLeast` numbers.
std::vector<double> ToDoubles(const VARIANT& value, std::size_t atLeast);
/// Of an array of any length; nothing is an empty list.
std::vector<std::string> ToTexts(const VARIANT& value);
/// The same; an element that is nothing is null.
std::vector<ComRef<IDispatch>> ToObjects(const VARIANT& value);
AcadVariant ToAcadVariant(const VARIANT& value);
/// Of two arrays of equal length, or twice nothing.
AcadXData ToXData(const VARIANT& codes, const VARIANT& values);

} // namespace sm::windows
