// SPDX-License-Identifier: GPL-3.0-or-later
// DWG files of R9 to R12: records of bytes, laid down as the tags that a DXF of those releases would have.
#pragma once

#include "dwg/TagSink.h"
#include "dwg/old/OldFile.h"
#include "dwg/old/OldRows.h"

namespace sm::drawing::dwg {

/// Reads the whole file. `path` names it in messages. Throws DrawingError (file, release, what is wrong) when it ends
/// in its head; what else is wrong is added to `findings`.
DecodedTags ReadOldDrawing(std::string_view bytes, const std::string& path, FindingList& findings);

// Its parts.
void PutHeader(const OldFile& file, TagSink& sink);
void PutTables(const OldFile& file, TagSink& sink);
void PutBlocksAndEntities(const OldFile& file, TagSink& sink, FindingList& findings);

} // namespace sm::drawing::dwg
