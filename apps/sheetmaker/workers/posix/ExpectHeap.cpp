// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WorkerLimits.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace sm::app {

namespace {

constexpr int kMebibyte = 1 << 20;
constexpr std::size_t kLeast = std::size_t{768} << 10;   ///< of the smallest drawing
constexpr std::size_t kMost = std::size_t{240} << 20;    ///< below what the library keeps of a heap's free top
constexpr std::size_t kManyBytes = std::size_t{4} << 20; ///< from here on large pages pay

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

/// A piece that malloc is refused would count as the drawing's own want of memory.
bool IsThere(std::size_t bytes)
{
    void* const room = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return room != MAP_FAILED && ::munmap(room, bytes) == 0;
}

/// Takes pieces until the heap has grown, and gives them back: its top stays.
char* GrowHeap()
{
    constexpr std::size_t kPiece = 65536, kMostPieces = 64;
    const void* const from = ::sbrk(0);
    std::vector<std::unique_ptr<void, FreeMemory>> pieces;
    while (pieces.size() < kMostPieces && ::sbrk(0) == from)
        pieces.emplace_back(std::malloc(kPiece));
    return static_cast<char*>(::sbrk(0));
}

} // namespace

void ExpectHeap(std::uint64_t drawing)
{
    constexpr int kUsualPad = 128 << 10;
    const std::size_t bytes = std::clamp(static_cast<std::size_t>(drawing / 4 * 3), kLeast, kMost);
    if (!IsThere(2 * bytes))
        return;
    // The first is where the library comes to by itself when large pieces are given back; by the second it keeps the
    // heap's free top, which is what was taken here.
    ::mallopt(M_MMAP_THRESHOLD, 32 * kMebibyte);
    ::mallopt(M_TRIM_THRESHOLD, 256 * kMebibyte);
    ::mallopt(M_TOP_PAD, static_cast<int>(bytes));
    char* const from = static_cast<char*>(::sbrk(0));
    char* const top = GrowHeap();
    ::mallopt(M_TOP_PAD, kUsualPad);
    if (top > from)
        ::madvise(from, static_cast<std::size_t>(top - from), bytes < kManyBytes ? MADV_POPULATE_WRITE : MADV_HUGEPAGE);
}

} // namespace sm::app
