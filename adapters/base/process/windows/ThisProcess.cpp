// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process/ThisProcess.h"

#include "base/windows/Handles.h"
#include "base/windows/Launch.h"

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <io.h>

#include <lmcons.h>
#include <ntsecapi.h>

namespace sm::base {

std::int64_t ProcessNumber()
{
    return ::GetCurrentProcessId();
}

std::optional<std::string> Variable(const char* name)
{
    const std::wstring wide = Wide(name);
    ::SetLastError(ERROR_SUCCESS);
    const DWORD size = ::GetEnvironmentVariableW(wide.c_str(), nullptr, 0);
    if (size == 0 && ::GetLastError() != ERROR_SUCCESS)
        return std::nullopt;
    std::wstring value(size, L'\0');
    value.resize(::GetEnvironmentVariableW(wide.c_str(), value.data(), size));
    return Narrow(value);
}

std::vector<std::string> Variables()
{
    std::vector<std::string> variables;
    wchar_t* const block = ::GetEnvironmentStringsW();
    for (const wchar_t* at = block; at != nullptr && *at != L'\0'; at += std::wcslen(at) + 1)
        if (*at != L'=') // the system's own: the working folder of each drive
            variables.push_back(Narrow(at));
    ::FreeEnvironmentStringsW(block);
    return variables;
}

std::string AccountName()
{
    wchar_t name[UNLEN + 1] = {};
    DWORD size = UNLEN + 1;
    return ::GetUserNameW(name, &size) != FALSE ? Narrow(name) : std::string();
}

namespace {

HANDLE HandleOf(Stream stream)
{
    constexpr DWORD kStreams[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    return ::GetStdHandle(kStreams[static_cast<int>(stream)]);
}

} // namespace

bool IsTerminal(Stream stream)
{
    DWORD mode = 0;
    return ::GetConsoleMode(HandleOf(stream), &mode) != FALSE;
}

bool IsRead(Stream stream)
{
    const DWORD type = ::GetFileType(HandleOf(stream));
    return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE || IsTerminal(stream);
}

std::uint64_t MachineMemory()
{
    MEMORYSTATUSEX state{};
    state.dwLength = sizeof state;
    return ::GlobalMemoryStatusEx(&state) != FALSE ? state.ullTotalPhys : 0;
}

std::optional<std::array<std::uint64_t, 2>> RandomWords()
{
    std::array<std::uint64_t, 2> words{};
    return ::RtlGenRandom(words.data(), sizeof words) != FALSE ? std::optional(words) : std::nullopt;
}

std::tm LocalTime(std::time_t time)
{
    std::tm local{};
    ::localtime_s(&local, &time);
    return local;
}

void LiveInUtc()
{
    ::_putenv("TZ=UTC0");
    ::_tzset();
}

void PrepareProcess()
{
    _fmode = _O_BINARY;
    for (const int stream : {0, 1, 2})
        ::_setmode(stream, _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
    ::SetConsoleCP(CP_UTF8);
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX | SEM_NOGPFAULTERRORBOX);
}

/// A process can't become another program there: it waits for it, and ends as that does.
std::string BecomeProgram(const std::string& program, const std::vector<std::string>& words)
{
    const Handle job = MakeJob();
    const Handle process =
        StartInJob({program, CommandLine(program, words), nullptr, "", ::GetStdHandle(STD_INPUT_HANDLE),
                    ::GetStdHandle(STD_OUTPUT_HANDLE), ::GetStdHandle(STD_ERROR_HANDLE)},
                   job.Get());
    if (!process.IsOpen())
        return LastError().message();
    DWORD code = 0;
    ::WaitForSingleObject(process.Get(), INFINITE);
    ::GetExitCodeProcess(process.Get(), &code);
    ::ExitProcess(code);
}

} // namespace sm::base
