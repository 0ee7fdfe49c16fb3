// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/Makers.h"

#include "base/process/ThisProcess.h"
#include "base/windows/Handles.h"

#include <random>

namespace sm::base {

namespace {

std::uint64_t StartOf(const Handle& process)
{
    FILETIME start{}, end{}, kernel{}, user{};
    if (!process.IsOpen() || ::GetProcessTimes(process.Get(), &start, &end, &kernel, &user) == FALSE)
        return 0;
    return std::uint64_t{start.dwHighDateTime} << 32 | start.dwLowDateTime;
}

Handle Opened(std::int64_t process)
{
    return Handle(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, static_cast<DWORD>(process)));
}

/// What an installation of the system draws by lot; empty where it can't be read. It stands among the keys of 64-bit
/// programs alone, and is the same for all.
std::string MachineNumber()
{
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Cryptography", 0, KEY_QUERY_VALUE | KEY_WOW64_64KEY,
                        &key) != ERROR_SUCCESS)
        return {};
    char text[64] = {};
    DWORD size = sizeof text;
    const LSTATUS read = ::RegGetValueA(key, nullptr, "MachineGuid", RRF_RT_REG_SZ, nullptr, text, &size);
    ::RegCloseKey(key);
    return read == ERROR_SUCCESS ? text : "";
}

} // namespace

std::string MachineName()
{
    wchar_t name[256] = {};
    DWORD size = 256;
    return ::GetComputerNameExW(ComputerNamePhysicalDnsHostname, name, &size) != FALSE ? Narrow(name) : std::string();
}

std::string ThisMachine()
{
    const std::string name = MachineName();
    return name.empty() ? name : MachineMark(name, MachineNumber());
}

std::uint64_t StartOf(std::int64_t process)
{
    return StartOf(Opened(process));
}

bool HasEnded(std::int64_t process, std::uint64_t start)
{
    const Handle opened = Opened(process);
    if (!opened.IsOpen())
        return ::GetLastError() == ERROR_INVALID_PARAMETER; // there is none of that number
    const std::uint64_t now = StartOf(opened);
    return ::WaitForSingleObject(opened.Get(), 0) == WAIT_OBJECT_0 || (start != 0 && now != 0 && now != start);
}

std::uint64_t RandomNumber()
{
    const auto words = RandomWords();
    return words ? words->front() : std::uint64_t{std::random_device()()} << 32 | std::random_device()();
}

bool IsOwnFolder(const std::string& path)
{
    const DWORD attributes = ::GetFileAttributesW(WidePath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

} // namespace sm::base
