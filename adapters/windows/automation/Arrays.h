// SPDX-License-Identifier: GPL-3.0-or-later
// One-dimensional SAFEARRAYs as lists of VARIANTs.
#pragma once

#include "windows/automation/OwnedVariant.h"

#include <vector>

namespace sm::windows {

bool IsArray(const VARIANT& value);
/// Copies of the elements, first to last, whatever the lower bound. Throws HostError when the value is no
/// one-dimensional array, or one of elements that no VARIANT holds.
std::vector<OwnedVariant> ElementsOf(const VARIANT& value);

/// An array of `type` with the elements' values; each must have that type, or `type` is VT_VARIANT.
OwnedVariant ArrayOf(VARTYPE type, std::vector<OwnedVariant>& elements);

} // namespace sm::windows
