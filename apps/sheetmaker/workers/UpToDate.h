// SPDX-License-Identifier: GPL-3.0-or-later
// Which PDFs needn't be made again.
#pragma once

#include <string>

namespace sm::app {

/// Whether the PDF is newer than the drawing and than what belongs to it (DRAWING.sheetmaker), and whole: it begins and
/// ends as PDF files do. What the drawing refers to isn't asked.
bool IsUpToDate(const std::string& drawing, const std::string& pdf);

} // namespace sm::app
