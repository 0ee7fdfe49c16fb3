// SPDX-License-Identifier: GPL-3.0-or-later
// Memory that the system did not give.
#include "base/process/Memory.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

namespace sm::base {
namespace {

TEST(Memory, AFailureOfALibraryIsRemembered)
{
    const auto note = [] {
        const bool before = MemoryRanOut();
        NoteFailedAllocation();
        std::fprintf(stderr, "%d then %d", before, MemoryRanOut());
        std::_Exit(3);
    };
    EXPECT_EXIT(note(), testing::ExitedWithCode(3), "^0 then 1$");
}

TEST(Memory, AFailureOfALibraryEndsAWorker)
{
    const auto note = [] {
        EndWithoutMemory(125);
        NoteFailedAllocation();
        std::fputs("went on", stderr);
        std::_Exit(0);
    };
    EXPECT_EXIT(note(), testing::ExitedWithCode(125), "^$");
}

} // namespace
} // namespace sm::base
