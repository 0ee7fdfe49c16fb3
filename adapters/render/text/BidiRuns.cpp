// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/BidiRuns.h"

#include "base/text/Utf8.h"
#include "fonts/Unicode.h"

#include <algorithm>

namespace sm::render {

namespace {

struct LeveledRun {
    BidiRun run;
    FriBidi::Level level = 0;
};

std::vector<LeveledRun> LogicalRuns(std::string_view text)
{
    std::vector<std::uint32_t> characters;
    std::vector<std::size_t> places;
    for (std::size_t at = 0; at < text.size();) {
        places.push_back(at);
        characters.push_back(base::NextCharacter(text, at));
    }
    places.push_back(text.size());
    const int length = static_cast<int>(characters.size());
    std::vector<std::uint32_t> types(characters.size()), brackets(characters.size());
    std::vector<FriBidi::Level> levels(characters.size());
    const FriBidi& bidi = FriBidi::Loaded();
    bidi.types(characters.data(), length, types.data());
    bidi.brackets(characters.data(), length, types.data(), brackets.data());
    std::uint32_t direction = FriBidi::kNoDirection;
    bidi.levels(types.data(), brackets.data(), length, &direction, levels.data());
    std::vector<LeveledRun> runs;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (runs.empty() || runs.back().level != levels[i]) {
            runs.push_back({{places[i], places[i], levels[i] % 2 != 0}, levels[i]});
        }
        runs.back().run.to = places[i + 1];
    }
    return runs;
}

} // namespace

bool RunsBothWays(std::string_view text)
{
    constexpr unsigned char kLowestLead = 0xD6; // of U+0580 and above
    const auto high = [](char c) { return static_cast<unsigned char>(c) >= kLowestLead; };
    if (std::none_of(text.begin(), text.end(), high)) {
        return false;
    }
    for (std::size_t at = 0; at < text.size();) {
        if (IsRightToLeft(base::NextCharacter(text, at))) {
            return true;
        }
    }
    return false;
}

// Rule L2 of the algorithm: from the highest level down, what stands at that level or above is turned round.
std::vector<BidiRun> VisualRuns(std::string_view text)
{
    std::vector<LeveledRun> runs = LogicalRuns(text);
    FriBidi::Level highest = 0;
    for (const LeveledRun& run : runs) {
        highest = std::max(highest, run.level);
    }
    for (FriBidi::Level level = highest; level > 0; --level) {
        const auto below = [&](const LeveledRun& run) { return run.level < level; };
        const auto within = [&](const LeveledRun& run) { return run.level >= level; };
        for (auto at = std::find_if(runs.begin(), runs.end(), within); at != runs.end();
             at = std::find_if(at, runs.end(), within)) {
            const auto end = std::find_if(at, runs.end(), below);
            std::reverse(at, end);
            at = end;
        }
    }
    std::vector<BidiRun> result;
    for (const LeveledRun& run : runs) {
        result.push_back(run.run);
    }
    return result;
}

} // namespace sm::render
