// SPDX-License-Identifier: GPL-3.0-or-later
#include "FailingCalls.h"

#include <cerrno>
#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace sm::app {
namespace {

int g_left = 0; ///< calls until the failing one; 0: none is meant to fail
bool g_forGood = false;
int g_injected = 0;

/// Whether the call that asks is one to fail.
bool Fails()
{
    if (g_left == 0 || --g_left != 0)
        return false;
    if (g_forGood)
        g_left = 1;
    ++g_injected;
    errno = EIO;
    return true;
}

template <class Call> Call Real(const char* name)
{
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

} // namespace

FailingCalls::FailingCalls(int failing, bool forGood)
{
    g_injected = 0;
    g_forGood = forGood;
    g_left = failing;
}

FailingCalls::~FailingCalls()
{
    g_left = 0;
}

int FailingCalls::Injected() const
{
    return g_injected;
}

} // namespace sm::app

// These stand before those of the C library, in the calls of shared libraries, too.
extern "C" {

ssize_t write(int file, const void* bytes, size_t count)
{
    static const auto real = sm::app::Real<ssize_t (*)(int, const void*, size_t)>("write");
    return sm::app::Fails() ? -1 : real(file, bytes, count);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at)
{
    static const auto real = sm::app::Real<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64");
    return sm::app::Fails() ? -1 : real(file, bytes, count, at);
}

int fsync(int file)
{
    static const auto real = sm::app::Real<int (*)(int)>("fsync");
    return sm::app::Fails() ? -1 : real(file);
}

int fdatasync(int file)
{
    static const auto real = sm::app::Real<int (*)(int)>("fdatasync");
    return sm::app::Fails() ? -1 : real(file);
}

int fchmod(int file, mode_t mode) noexcept
{
    static const auto real = sm::app::Real<int (*)(int, mode_t)>("fchmod");
    return sm::app::Fails() ? -1 : real(file, mode);
}

int mkostemp(char* pattern, int flags)
{
    static const auto real = sm::app::Real<int (*)(char*, int)>("mkostemp");
    return sm::app::Fails() ? -1 : real(pattern, flags);
}

int link(const char* from, const char* to) noexcept
{
    static const auto real = sm::app::Real<int (*)(const char*, const char*)>("link");
    return sm::app::Fails() ? -1 : real(from, to);
}

int rename(const char* from, const char* to) noexcept
{
    static const auto real = sm::app::Real<int (*)(const char*, const char*)>("rename");
    return sm::app::Fails() ? -1 : real(from, to);
}
}
