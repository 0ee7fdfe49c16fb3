// SPDX-License-Identifier: GPL-3.0-or-later
// The allocations of the libraries that are linked into the program (option --wrap of the linker). Those written in C
// go on without what they got no memory for, and one waits for itself from then on: it keeps its lock on that way out.
#include "base/process/Memory.h"

#include <cstddef>

namespace {

/// A large piece may be refused and the library says so; without a small one nothing goes on.
constexpr std::size_t kSmall = std::size_t{1} << 20;

void* Checked(void* memory, std::size_t size) noexcept
{
    if (memory == nullptr && size != 0 && size <= kSmall)
        sm::base::NoteFailedAllocation();
    return memory;
}

} // namespace

extern "C" {

// NOLINTBEGIN(readability-identifier-naming,bugprone-reserved-identifier): the linker's names
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* old, std::size_t size);

void* __wrap_malloc(std::size_t size)
{
    return Checked(__real_malloc(size), size);
}

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return Checked(__real_calloc(count, size), count > kSmall ? count : count * size);
}

void* __wrap_realloc(void* old, std::size_t size)
{
    return Checked(__real_realloc(old, size), size);
}
// NOLINTEND(readability-identifier-naming,bugprone-reserved-identifier)
}
