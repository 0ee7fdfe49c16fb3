// SPDX-License-Identifier: GPL-3.0-or-later
// The marks that a document got.
#pragma once

#include "pdf/EmbeddedFiles.h"
#include "publisher/Publisher.h"

#include <cstddef>
#include <string>
#include <vector>

namespace sm::publisher {

struct MarkTally {
    std::size_t drawn = 0;
    std::size_t notDrawn = 0; ///< attachments whose file went away since they were queued
    std::vector<EmbeddedFile> embedded;
    std::vector<std::string> lost; ///< paths of attachments that weren't drawn
    std::vector<LargeFile> large;  ///< what is to be appended to the file
    std::size_t contentsPages = 0; ///< in front of the document's own
};

} // namespace sm::publisher
