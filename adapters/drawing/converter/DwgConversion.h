// SPDX-License-Identifier: GPL-3.0-or-later
// One run of a converter. For this room only.
#pragma once

#include "drawing/DwgConverter.h"
#include "tags/FileBytes.h"
#include "tags/FindingList.h"

#include <string>

namespace sm::drawing {

/// The DXF of the DWG `bytes` of `path`. What the converter says is missing goes into `findings`. Nothing is left on
/// disk. Throws DrawingError: no converter, one that fails, hangs or gives no DXF.
FileBytes ConvertDwg(const FileBytes& bytes, const std::string& path, const DwgOptions& options, FindingList& findings);

} // namespace sm::drawing
