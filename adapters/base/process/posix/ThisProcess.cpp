// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process/ThisProcess.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <new>
#include <pwd.h>
#include <string_view>

#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

extern char** environ;

namespace sm::base {

std::int64_t ProcessNumber()
{
    return ::getpid();
}

std::optional<std::string> Variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

std::vector<std::string> Variables()
{
    std::vector<std::string> variables;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable)
        variables.emplace_back(*variable);
    return variables;
}

std::string AccountName()
{
    errno = 0;
    const passwd* const account = ::getpwuid(::getuid());
    if (account == nullptr && errno == ENOMEM)
        throw std::bad_alloc();
    return account != nullptr ? account->pw_name : "";
}

bool IsTerminal(Stream stream)
{
    return ::isatty(static_cast<int>(stream)) == 1;
}

// A desktop leads its programs' streams into the system's journal, which is a socket, or into a file of its own.
bool IsRead(Stream stream)
{
    struct stat file = {};
    if (::fstat(static_cast<int>(stream), &file) != 0)
        return false;
    if (!S_ISREG(file.st_mode))
        return S_ISFIFO(file.st_mode) || IsTerminal(stream);
    const std::string link = "/proc/self/fd/" + std::to_string(static_cast<int>(stream));
    char path[PATH_MAX] = {};
    const ssize_t length = ::readlink(link.c_str(), path, sizeof path);
    return length < 0 || !std::string_view(path, static_cast<std::size_t>(length)).ends_with("/.xsession-errors");
}

std::uint64_t MachineMemory()
{
    const long pages = ::sysconf(_SC_PHYS_PAGES), size = ::sysconf(_SC_PAGESIZE);
    return pages > 0 && size > 0 ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(size) : 0;
}

std::optional<std::array<std::uint64_t, 2>> RandomWords()
{
    std::array<std::uint64_t, 2> words{};
    return ::getrandom(words.data(), sizeof words, 0) == sizeof words ? std::optional(words) : std::nullopt;
}

std::tm LocalTime(std::time_t time)
{
    std::tm local{};
    ::localtime_r(&time, &local);
    return local;
}

void LiveInUtc()
{
    ::setenv("TZ", "UTC0", 1);
    ::tzset();
}

void PrepareProcess()
{
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGXFSZ, SIG_IGN);
}

std::string BecomeProgram(const std::string& program, const std::vector<std::string>& words)
{
    std::vector<char*> arguments{const_cast<char*>(program.c_str())};
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::execv(program.c_str(), arguments.data());
    return std::strerror(errno);
}

} // namespace sm::base
