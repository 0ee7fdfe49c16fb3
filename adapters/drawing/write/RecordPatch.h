// SPDX-License-Identifier: GPL-3.0-or-later
// The changes to a drawing's bytes that store records in the named-object dictionary.
#pragma once

#include "model/Model.h"
#include "write/Edit.h"

#include <map>
#include <string>
#include <vector>

namespace sm::drawing {

/// Records by application; an empty list removes the record.
using RecordChanges = std::map<std::string, std::vector<XDataItem>>;

/// The record as the file holds it, the 1001 item first; empty when there is none.
std::vector<XDataItem> StoredRecord(const Model& model, const std::string& application);

/// The edits in file order. Throws DrawingError when the file has no place for them.
std::vector<Edit> PatchRecords(const Model& model, const RecordChanges& changes);

/// Throws DrawingError when the drawing has no named-object dictionary.
void RequireRoot(const Model& model);

} // namespace sm::drawing
