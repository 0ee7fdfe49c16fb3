// SPDX-License-Identifier: GPL-3.0-or-later
// Registers application names: entries of the APPID table and the handle seed.
#pragma once

#include "model/Model.h"
#include "write/Edit.h"
#include "write/TagWriter.h"

namespace sm::drawing {

/// How the file lays its groups down, as seen at the named-object dictionary.
TagStyle StyleOf(const Model& model);

/// Appends the edits that register those of `applications` that aren't yet. Throws DrawingError when the file has no
/// tables to hold them.
void RegisterApplications(const Model& model, const std::vector<std::string>& applications, std::vector<Edit>& edits);

} // namespace sm::drawing
