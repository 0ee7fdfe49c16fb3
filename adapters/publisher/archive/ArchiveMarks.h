// SPDX-License-Identifier: GPL-3.0-or-later
// What makes a finished document one by PDF/A, and what stands in its way.
#pragma once

#include "pdf/EmbeddedFiles.h"
#include "pdf/Qpdf.h"
#include "publisher/Archive.h"

#include <string>
#include <vector>

namespace sm::publisher {

/// The colours' profile (ISO 19005-2, 6.2.3) and, for PDF/A-3, how the attached files belong to the document (ISO
/// 19005-3, 6.8).
void AddArchiveMarks(QPDF& pdf, Archive archive);

/// The part of the metadata that says which standard the document keeps to (ISO 19005-2, 6.6.4); empty for none.
std::string ArchiveXmp(Archive archive);

/// Throws PublishFailure(ArchiveRefused) for the first thing in the document that the standard forbids, naming its page
/// and the remedy. What our own pages can't hold isn't looked for.
void RequireArchivable(QPDF& pdf, Archive archive);

} // namespace sm::publisher
