// SPDX-License-Identifier: GPL-3.0-or-later
// Where a drawing's records are kept.
#pragma once

#include <string>

namespace sm::drawing {

class Drawing;

/// Behind the whole name of the drawing, of the file that holds its records.
inline constexpr const char* kRecordsEnding = ".sheetmaker";

/// The file that Drawing::Save writes: the drawing itself, or the one beside it for a DWG and for a DXF without a
/// named-object dictionary (R12 and older).
std::string RecordsFileOf(const Drawing& drawing);

} // namespace sm::drawing
