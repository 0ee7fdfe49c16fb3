// SPDX-License-Identifier: GPL-3.0-or-later
// Variables that a drawing keeps in a dictionary instead of its header.
#pragma once

#include "model/Model.h"

#include <string>

namespace sm::drawing {

/// Group 1 of the DICTIONARYVAR of that name in "AcDbVariableDictionary" (DXF reference, DICTIONARYVAR); empty when the
/// drawing has none.
std::string DictionaryVariable(const Model& model, std::string_view name);

} // namespace sm::drawing
