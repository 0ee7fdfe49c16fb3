// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a document that is put together to its file.
#pragma once

#include "pdf/EmbeddedFiles.h"
#include "pdf/Qpdf.h"
#include "pdf/TargetFile.h"
#include "publisher/PdfForm.h"

#include <functional>
#include <string>
#include <vector>

namespace sm::publisher {

using NoteOutput = std::function<void(const std::string& line)>;

/// `note` hears what of the form can't be had with this document.
void WritePdf(QPDF& pdf, const std::vector<LargeFile>& files, const PdfForm& form, const NoteOutput& note,
              TargetFile& target);

/// The lowest version of PDF that has what the document uses: 1.4, with layers 1.5, with large pages 1.6.
double LevelNeeded(QPDF& pdf);

} // namespace sm::publisher
