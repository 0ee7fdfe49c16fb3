// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/CallTape.h"

#include "doubles/Journal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

namespace sm {

void CallTape::FailCall(const std::string& name, const std::string& description, int times, int skip)
{
    m_failures[name] = Failure{description, times, skip};
}

void CallTape::StopFailing()
{
    m_failures.clear();
    m_answeringNothing.clear();
}

void CallTape::Call(const std::string& object, const std::string& objectName, const std::string& operation,
                    const std::string& arguments)
{
    const std::string name = object + "." + operation;
    const std::string owner = objectName.empty() ? object : object + "(" + objectName + ")";
    m_lastCall = name;
    if (!keepsCalls)
        calls.clear();
    calls.push_back(owner + "." + operation + (arguments.empty() ? "" : " " + arguments));
    NoteInJournal(calls.back());
    if (faults != nullptr && faults->ShouldFail())
        throw HostError(name + " was made to fail");
    const auto found = m_failures.find(name);
    if (found == m_failures.end() || found->second.times == 0)
        return;
    Failure& failure = found->second;
    if (failure.skip > 0) {
        --failure.skip;
        return;
    }
    if (failure.times > 0)
        --failure.times;
    throw HostError(failure.description);
}

bool CallTape::IsAnswerNothing()
{
    const auto found = m_answeringNothing.find(m_lastCall);
    if (found != m_answeringNothing.end() && found->second-- <= 0)
        return true;
    return faults != nullptr && faults->ShouldAnswerNothing();
}

std::vector<std::string> CallTape::CallsOf(const std::string& beginning) const
{
    std::vector<std::string> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [&](const std::string& line) { return line.rfind(beginning, 0) == 0; });
    return found;
}

std::vector<std::string> CallTape::CallsWith(const std::string& part) const
{
    std::vector<std::string> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [&](const std::string& line) { return line.find(part) != std::string::npos; });
    return found;
}

std::string TapeText(double value)
{
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return {buffer.data(), end};
}

std::string TapeText(bool value)
{
    return value ? "1" : "0";
}

} // namespace sm
