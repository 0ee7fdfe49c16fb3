// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process/Memory.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

namespace sm::base {

namespace {

std::atomic<bool> g_ranOut;
std::atomic<int> g_endCode{-1};
const char* g_program = "";

[[noreturn]] void OnFailure()
{
    g_ranOut = true;
    throw std::bad_alloc();
}

[[noreturn]] void OnTerminate()
{
    try {
        if (const auto thrown = std::current_exception())
            std::rethrow_exception(thrown);
    } catch (const std::bad_alloc&) {
        if (g_endCode >= 0)
            std::_Exit(g_endCode);
        std::fprintf(stderr, "%s: there is not enough memory\n", g_program);
        std::_Exit(EXIT_FAILURE);
    } catch (...) {
        std::abort();
    }
    std::abort();
}

} // namespace

void WatchMemory(const char* program)
{
    g_program = program;
    std::set_terminate(OnTerminate);
    std::set_new_handler(OnFailure);
}

void NoteFailedAllocation() noexcept
{
    g_ranOut = true;
    if (g_endCode >= 0)
        std::_Exit(g_endCode);
}

void EndWithoutMemory(int code)
{
    g_endCode = code;
}

bool MemoryRanOut()
{
    return g_ranOut;
}

} // namespace sm::base
