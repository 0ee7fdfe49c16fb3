// How many marks a document got.
#pragma once

#include <cstddef>

namespace sm::publisher {

struct MarkTally {
    std::size_t drawn = 0;
    std::size_t notDrawn = 0; ///< attachments whose file went away since they were queued
};

} // namespace sm::publisher
