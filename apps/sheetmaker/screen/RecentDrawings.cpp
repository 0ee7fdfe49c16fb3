// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/RecentDrawings.h"

#include "base/files/Paths.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <system_error>

namespace sm::app {
namespace {

constexpr const char* kRecent = "RecentDrawings"; // paths, the latest first, a line each

std::vector<std::string> Remembered(beside::IWindowMemory& memory)
{
    std::vector<std::string> paths;
    std::istringstream lines(memory.Recall(kRecent));
    for (std::string path; std::getline(lines, path);)
        if (!path.empty())
            paths.push_back(path);
    return paths;
}

/// Empty for a path that can't be one.
std::string WholePath(const std::string& path)
{
    std::error_code nowhere;
    const auto whole = std::filesystem::absolute(base::ToPath(path), nowhere).lexically_normal();
    return nowhere ? "" : base::ToText(whole);
}

} // namespace

std::vector<std::string> RecentDrawings(beside::IWindowMemory* memory)
{
    std::vector<std::string> paths;
    if (memory == nullptr)
        return paths;
    paths = Remembered(*memory);
    std::erase_if(paths, [](const std::string& path) {
        std::error_code unreadable;
        return !std::filesystem::is_regular_file(base::ToPath(path), unreadable);
    });
    return paths;
}

void RememberDrawing(beside::IWindowMemory* memory, const std::string& path)
{
    const std::string whole = WholePath(path);
    if (memory == nullptr || whole.empty() || whole.find('\n') != std::string::npos)
        return;
    std::vector<std::string> paths = Remembered(*memory);
    std::erase(paths, whole);
    paths.insert(paths.begin(), whole);
    paths.resize(std::min(paths.size(), kMostRecentDrawings));
    std::string text;
    for (const std::string& one : paths)
        text += one + "\n";
    memory->Remember(kRecent, text);
}

std::vector<std::string> OtherDrawings::Recent()
{
    try {
        std::vector<std::string> paths = RecentDrawings(m_memory);
        std::erase(paths, WholePath(m_own));
        return paths;
    } catch (...) {
        return {};
    }
}

} // namespace sm::app
