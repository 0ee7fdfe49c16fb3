// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a target over its seeds, seeded changes of them, and files, with any compiler.
//
//     replay TARGET [--mutations N] [--seed S] [FILE|FOLDER...]
//     replay --list                        the targets and their longest inputs
//     replay TARGET --write FOLDER         its seeds as files
//
// One line for each kind of input; 1 when one took too long. What ends the process is named by its seed before.
#include "fuzz/Mutator.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

extern "C" {
/// The sanitizers call it back before they end the process; not there without them.
__attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());
/// What fontconfig keeps when it is started isn't ours.
const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}
}

namespace {

namespace fs = std::filesystem;
using sm::fuzz::Mutator;
using sm::fuzz::Target;

/// Seconds that one input may take, sanitizers and a loaded machine counted in.
constexpr double kMostSeconds = 10;

struct Wanted {
    const Target* target = nullptr;
    unsigned mutations = 0;
    std::uint64_t seed = 1;
    std::string folder; ///< that seeds are written to
    std::vector<fs::path> paths;
};

/// What is at work, for who looks at the end of the process; outlives all objects.
std::array<char, 1000> g_atWork{}; // NOLINT: a signal handler has no other place to look
void TellWork()
{
    std::fprintf(stderr, "ended in: %s\n", g_atWork.data());
}
void OnAbort(int)
{
    TellWork();
    std::_Exit(1);
}

std::vector<fs::path> FilesOf(const std::vector<fs::path>& paths)
{
    std::vector<fs::path> files;
    for (const fs::path& path : paths) {
        if (!fs::exists(path)) // no findings yet
            continue;
        if (!fs::is_directory(path)) {
            files.push_back(path);
            continue;
        }
        for (const auto& entry : fs::directory_iterator(path))
            if (entry.is_regular_file())
                files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

class Replay {
public:
    explicit Replay(const Target& target) : m_target(target) {}

    void Run(const std::string& input, const std::string& name)
    {
        std::snprintf(g_atWork.data(), g_atWork.size(), "%s", name.c_str());
        const auto begin = std::chrono::steady_clock::now();
        m_target.run(input);
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        ++m_kinds[m_target.kind != nullptr ? m_target.kind(input) : m_target.name];
        if (seconds > kMostSeconds) {
            std::printf("%s takes %.1f s\n", name.c_str(), seconds);
            m_slow = true;
        }
    }

    [[nodiscard]] int End() const
    {
        for (const auto& [kind, number] : m_kinds)
            std::printf("%-16s %u\n", kind.c_str(), number);
        return m_kinds.empty() || m_slow ? 1 : 0;
    }

private:
    const Target& m_target;
    std::map<std::string, unsigned> m_kinds;
    bool m_slow = false;
};

int RunAll(const Wanted& wanted)
{
    Replay replay(*wanted.target);
    const std::vector<std::string> inputs = wanted.target->seeds();
    for (std::size_t i = 0; i < inputs.size(); ++i)
        replay.Run(inputs[i], "seed " + std::to_string(i));
    for (const fs::path& path : FilesOf(wanted.paths)) {
        std::ifstream stream(path, std::ios::binary);
        replay.Run({std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()}, path.string());
    }
    for (unsigned i = 0; i < wanted.mutations; ++i) {
        const std::uint64_t seed = wanted.seed + i;
        Mutator mutator(*wanted.target, inputs, seed);
        replay.Run(mutator.Mutated(inputs[mutator.Below(inputs.size())]),
                   std::string(wanted.target->name) + " --mutations 1 --seed " + std::to_string(seed));
    }
    return replay.End();
}

int WriteSeeds(const Wanted& wanted)
{
    fs::create_directories(wanted.folder);
    unsigned number = 0;
    for (const std::string& seed : wanted.target->seeds())
        std::ofstream(fs::path(wanted.folder) / ("seed-" + std::to_string(number++)), std::ios::binary) << seed;
    std::printf("%u seeds\n", number);
    return 0;
}

int List()
{
    for (const Target& target : sm::fuzz::Targets())
        std::printf("%s %zu\n", target.name, target.most);
    return 0;
}

} // namespace

int main(int count, char** words)
{
    Wanted wanted;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        if (word == "--list")
            return List();
        if (word == "--mutations" && i + 1 < count)
            wanted.mutations = static_cast<unsigned>(std::atoi(words[++i]));
        else if (word == "--seed" && i + 1 < count)
            wanted.seed = std::strtoull(words[++i], nullptr, 10);
        else if (word == "--write" && i + 1 < count)
            wanted.folder = words[++i];
        else if (wanted.target == nullptr)
            wanted.target = sm::fuzz::FindTarget(word);
        else
            wanted.paths.emplace_back(word);
    }
    if (wanted.target == nullptr) {
        std::fprintf(stderr, "replay TARGET [--mutations N] [--seed S] [--write FOLDER] [FILE|FOLDER...]; --list\n");
        return 2;
    }
    if (__sanitizer_set_death_callback != nullptr)
        __sanitizer_set_death_callback(TellWork);
    std::signal(SIGABRT, OnAbort);
    return wanted.folder.empty() ? RunAll(wanted) : WriteSeeds(wanted);
}
