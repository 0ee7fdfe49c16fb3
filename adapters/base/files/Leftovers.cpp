// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/Leftovers.h"

#include "base/files/FolderNames.h"
#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "files/Makers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <mutex>
#include <optional>
#include <set>

namespace sm::base {

namespace {

constexpr std::size_t kRandomDigits = 16;

/// Who makes temporary things here: machine, process and start.
const std::string& OwnMark()
{
    thread_local std::int64_t process = 0; // a forked process is another one
    thread_local std::string mark;
    if (process != ProcessNumber()) {
        process = ProcessNumber();
        mark = ThisMachine() + "-" + std::to_string(process) + "-" + std::to_string(StartOf(process));
    }
    return mark;
}

/// Takes what stands behind the last "-" off the text.
std::optional<std::string_view> TakeLastPart(std::string_view& text)
{
    const std::size_t dash = text.rfind('-');
    if (dash == std::string_view::npos)
        return std::nullopt;
    const std::string_view part = text.substr(dash + 1);
    text = text.substr(0, dash);
    return part;
}

template <typename Number> std::optional<Number> NumberFrom(const std::optional<std::string_view>& text)
{
    Number number = 0;
    if (!text || text->empty())
        return std::nullopt;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
    return error == std::errc() && end == text->data() + text->size() ? std::optional(number) : std::nullopt;
}

void VisitAbandoned(const std::string& folder, std::string_view prefix, std::string_view ending,
                    const std::function<void(const std::string&)>& visit)
{
    const auto look = [&](const FolderName& name) {
        if (IsAbandoned(name.Text(), prefix, ending))
            visit((folder.empty() ? "." : folder) + "/" + std::string(name.Text()));
    };
    VisitNames(folder, look, kMostNamesSeen);
}

} // namespace

std::string TemporaryName(std::string_view prefix, std::string_view ending)
{
    return std::string(prefix) + OwnMark() + "-" + Hexadecimal(RandomNumber()) + std::string(ending);
}

bool IsAbandoned(std::string_view name, std::string_view prefix, std::string_view ending)
{
    if (!name.starts_with(prefix) || !name.ends_with(ending) || name.size() < prefix.size() + ending.size())
        return false;
    std::string_view rest = name.substr(prefix.size(), name.size() - prefix.size() - ending.size());
    const auto random = TakeLastPart(rest);
    const auto start = NumberFrom<std::uint64_t>(TakeLastPart(rest));
    const auto process = NumberFrom<std::int32_t>(TakeLastPart(rest));
    static const std::string machine = ThisMachine();
    return random && random->size() == kRandomDigits && start && process && *process > 0 && !machine.empty() &&
           rest == machine && HasEnded(*process, *start);
}

void RemoveAbandonedFiles(const std::string& folder, std::string_view prefix, std::string_view ending)
{
    VisitAbandoned(folder, prefix, ending, [](const std::string& path) {
        std::error_code ignored;
        std::filesystem::remove(ToPath(path), ignored);
    });
}

void RemoveAbandonedFolders(const std::string& folder, std::string_view prefix)
{
    VisitAbandoned(folder, prefix, "", [](const std::string& path) {
        std::error_code ignored;
        if (IsOwnFolder(path))
            std::filesystem::remove_all(ToPath(path), ignored);
    });
}

void RemoveAbandonedFoldersOnce(const std::string& folder, std::string_view prefix)
{
    static std::mutex turn;
    static std::set<std::string> cleared;
    const std::lock_guard lock(turn);
    if (cleared.insert(folder).second)
        RemoveAbandonedFolders(folder, prefix);
}

} // namespace sm::base
