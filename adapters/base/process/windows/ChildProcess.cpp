// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process/ChildProcess.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "base/windows/Launch.h"
#include "process/ChildOutput.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <thread>

namespace sm::base {

namespace {

constexpr UINT kKilled = 137;
constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr DWORD kFirstFault = 0xC0000000; ///< exit codes from here on are what the system ended a process for

ChildResult NotStarted(const std::error_code& error)
{
    ChildResult result;
    result.code = error.value();
    result.reason = error.message();
    return result;
}

/// What the system needs to start any program.
constexpr std::array kNeeded{"SystemRoot", "SystemDrive", "TEMP", "TMP", "WINEPREFIX"};

/// One text with a NUL behind each variable and one more at its end, sorted as the system wants it.
std::wstring Block(std::vector<std::string> variables)
{
    for (const char* name : kNeeded) {
        const std::string begin = std::string(name) + "=";
        const bool given = std::any_of(variables.begin(), variables.end(),
                                       [&](const std::string& text) { return text.starts_with(begin); });
        if (const auto value = Variable(name); value && !given)
            variables.push_back(begin + *value);
    }
    std::sort(variables.begin(), variables.end());
    std::wstring block;
    for (const std::string& variable : variables)
        block += Wide(variable) + L'\0';
    return block + L'\0';
}

/// Files have no limit of size here: the system knows none for a process.
void LimitJob(HANDLE job, const ChildLimits& limits)
{
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION all{};
    all.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (limits.cpuSeconds != 0) {
        all.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_TIME;
        all.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart =
            static_cast<std::int64_t>(limits.cpuSeconds) * kTicksPerSecond;
    }
    if (limits.memoryBytes != 0) {
        all.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_MEMORY;
        all.ProcessMemoryLimit = static_cast<SIZE_T>(std::min<std::uint64_t>(limits.memoryBytes, SIZE_MAX));
    }
    ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &all, sizeof all);
}

void ReadAll(HANDLE reading, ChildOutput& output)
{
    std::array<char, 16384> buffer; // filled by ReadFile
    DWORD got = 0;
    while (::ReadFile(reading, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) != FALSE)
        output.Add(buffer.data(), got);
}

bool UsedUpItsTime(HANDLE process, const ChildLimits& limits)
{
    FILETIME start{}, end{}, kernel{}, user{};
    if (limits.cpuSeconds == 0 || ::GetProcessTimes(process, &start, &end, &kernel, &user) == FALSE)
        return false;
    const auto ticks = std::uint64_t{user.dwHighDateTime} << 32 | user.dwLowDateTime;
    return ticks >= limits.cpuSeconds * static_cast<std::uint64_t>(kTicksPerSecond);
}

ChildResult Reap(HANDLE process, bool endedItself, const ChildLimits& limits)
{
    ChildResult result;
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    result.code = static_cast<int>(code);
    result.outOfTime = !endedItself || UsedUpItsTime(process, limits);
    if (!endedItself) {
        result.end = ChildResult::End::PastDeadline;
    } else if (code >= kFirstFault || result.outOfTime) {
        result.end = ChildResult::End::Signalled;
        result.reason = code == EXCEPTION_ACCESS_VIOLATION ? "access violation" : "fault";
    } else {
        result.end = ChildResult::End::Exited;
    }
    return result;
}

} // namespace

std::string FindProgram(const std::string& program)
{
    return FindProgram(program, Variable("PATH").value_or(""));
}

std::string FindProgram(const std::string& program, const std::string& folders)
{
    const auto usable = [](const std::filesystem::path& path) {
        std::error_code error;
        return std::filesystem::is_regular_file(path, error);
    };
    const std::string file = ToPath(program).has_extension() ? program : program + ".exe";
    if (program.find_first_of(kSeparators) != std::string::npos) {
        std::error_code error;
        return usable(ToPath(file)) ? ToText(std::filesystem::absolute(ToPath(file), error)) : std::string();
    }
    for (std::size_t begin = 0; begin <= folders.size();) {
        const std::size_t end = std::min(folders.find(';', begin), folders.size());
        const auto candidate = ToPath(folders.substr(begin, end - begin)) / ToPath(file);
        if (!program.empty() && candidate.is_absolute() && usable(candidate))
            return ToText(candidate);
        begin = end + 1;
    }
    return {};
}

ChildResult RunChild(const ChildCommand& command)
{
    PipePair pipe = MakePipe(ChildEnd::Writing);
    Handle job = MakeJob();
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    const Handle nothing(::CreateFileW(L"NUL", GENERIC_READ, kSharedByAll, &inheritable, OPEN_EXISTING, 0, nullptr));
    if (!pipe.reading.IsOpen() || !job.IsOpen())
        return NotStarted(LastError());
    LimitJob(job.Get(), command.limits);
    const std::wstring environment = Block(command.environment);
    const Handle process = StartInJob({command.program,
                                       CommandLine(command.program, command.arguments),
                                       environment.c_str(),
                                       command.workingFolder,
                                       nothing.Get(),
                                       pipe.writing.Get(),
                                       pipe.writing.Get(),
                                       {},
                                       CREATE_NO_WINDOW},
                                      job.Get());
    if (!process.IsOpen())
        return NotStarted(LastError());
    pipe.writing.Close();
    ChildOutput output(command.keptLines);
    std::thread reader(ReadAll, pipe.reading.Get(), std::ref(output));
    const auto patience = std::min<std::int64_t>(command.limits.deadline.count(), INFINITE - 1);
    const bool ended = ::WaitForSingleObject(process.Get(), static_cast<DWORD>(patience)) == WAIT_OBJECT_0;
    ChildResult result = Reap(process.Get(), ended, command.limits);
    ::TerminateJobObject(job.Get(), kKilled);   // closes the pipe of whatever it left running, too
    ::TerminateProcess(process.Get(), kKilled); // Windows 7 has no job within a job: it may be in none of ours
    ::WaitForSingleObject(process.Get(), INFINITE);
    reader.join();
    result.output = output.Text();
    return result;
}

} // namespace sm::base
