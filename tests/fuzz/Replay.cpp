// Runs the fuzz target over files, with any compiler; given folders, over all files in them.
//
//     replay_dwg FILE|FOLDER...      one line for each kind of input; 1 when there was no file
#include "fuzz/FuzzDwg.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace {

/// Seconds that one input may take, sanitizers and a loaded machine counted in.
constexpr double kMostSeconds = 10;

std::vector<std::filesystem::path> FilesOf(int count, char** words)
{
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < count; ++i) {
        if (!std::filesystem::is_directory(words[i])) {
            files.emplace_back(words[i]);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(words[i]))
            if (entry.is_regular_file())
                files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

double SecondsFor(const std::string& bytes)
{
    const auto begin = std::chrono::steady_clock::now();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

} // namespace

int main(int count, char** words)
{
    std::map<std::string, unsigned> kinds;
    bool slow = false;
    for (const std::filesystem::path& path : FilesOf(count, words)) {
        std::ifstream stream(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        const double seconds = SecondsFor(bytes);
        if (seconds > kMostSeconds) {
            std::printf("%s takes %.1f s\n", path.c_str(), seconds);
            slow = true;
        }
        ++kinds[sm::drawing::dwg::testing::KindOfInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                                       bytes.size())];
    }
    for (const auto& [kind, number] : kinds)
        std::printf("%-16s %u\n", kind.c_str(), number);
    return kinds.empty() || slow ? 1 : 0;
}
