// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/windows/Launch.h"

#include <algorithm>

namespace sm::base {

namespace {

/// The handles that a child inherits, and no others that are inheritable by chance.
class Inherited {
public:
    explicit Inherited(std::vector<HANDLE> handles) : m_handles(std::move(handles))
    {
        std::erase(m_handles, nullptr);
        std::sort(m_handles.begin(), m_handles.end());
        m_handles.erase(std::unique(m_handles.begin(), m_handles.end()), m_handles.end());
        SIZE_T size = 0;
        ::InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        m_room.resize(size);
        if (::InitializeProcThreadAttributeList(List(), 1, 0, &size) == FALSE)
            m_room.clear();
        else if (!m_handles.empty())
            ::UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, m_handles.data(),
                                        m_handles.size() * sizeof(HANDLE), nullptr, nullptr);
    }
    ~Inherited()
    {
        if (!m_room.empty())
            ::DeleteProcThreadAttributeList(List());
    }
    Inherited(const Inherited&) = delete;
    Inherited& operator=(const Inherited&) = delete;
    [[nodiscard]] LPPROC_THREAD_ATTRIBUTE_LIST List()
    {
        return m_room.empty() ? nullptr : reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(m_room.data());
    }
    [[nodiscard]] bool IsEmpty() const { return m_handles.empty(); }

private:
    std::vector<HANDLE> m_handles;
    std::vector<char> m_room;
};

} // namespace

std::wstring Quoted(const std::string& word)
{
    const std::wstring text = Wide(word);
    if (!text.empty() && text.find_first_of(L" \t\n\v\"") == std::wstring::npos)
        return text;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0; // they count twice in front of a quotation mark, and nowhere else
    for (const wchar_t c : text) {
        if (c == L'"')
            quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

std::wstring CommandLine(const std::string& program, const std::vector<std::string>& words)
{
    std::wstring line = Quoted(program);
    for (const std::string& word : words)
        line += L" " + Quoted(word);
    return line;
}

Handle MakeJob()
{
    Handle job(::CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (job.IsOpen())
        ::SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

PipePair MakePipe(ChildEnd childEnd)
{
    HANDLE reading = nullptr, writing = nullptr;
    if (::CreatePipe(&reading, &writing, nullptr, 0) == FALSE)
        return {};
    PipePair pair{Handle(reading), Handle(writing)};
    ::SetHandleInformation(childEnd == ChildEnd::Reading ? reading : writing, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    return pair;
}

Handle StartInJob(const Start& start, HANDLE job)
{
    std::vector<HANDLE> handles{start.input, start.output, start.errors};
    handles.insert(handles.end(), start.others.begin(), start.others.end());
    Inherited inherited(handles);
    STARTUPINFOEXW how{};
    how.StartupInfo.cb = sizeof how;
    how.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    how.StartupInfo.hStdInput = start.input;
    how.StartupInfo.hStdOutput = start.output;
    how.StartupInfo.hStdError = start.errors;
    how.lpAttributeList = inherited.List();
    std::wstring commandLine = start.commandLine; // the system may write into it
    const std::wstring folder = WidePath(start.workingFolder);
    const DWORD flags = start.flags | CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT |
                        (how.lpAttributeList ? EXTENDED_STARTUPINFO_PRESENT : 0);
    PROCESS_INFORMATION made{};
    if (::CreateProcessW(WidePath(start.program).c_str(), commandLine.data(), nullptr, nullptr,
                         inherited.IsEmpty() ? FALSE : TRUE, flags, const_cast<wchar_t*>(start.environment),
                         folder.empty() ? nullptr : folder.c_str(), &how.StartupInfo, &made) == FALSE)
        return {};
    Handle process(made.hProcess);
    const Handle thread(made.hThread);
    ::AssignProcessToJobObject(job, process.Get());
    ::ResumeThread(thread.Get());
    return process;
}

} // namespace sm::base
