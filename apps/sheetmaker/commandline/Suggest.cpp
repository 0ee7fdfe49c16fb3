// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/Suggest.h"

#include "base/text/Names.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::app {
namespace {

/// How many letters must be put in, left out, changed or swapped with their neighbour.
std::size_t Distance(const std::string& from, const std::string& to)
{
    std::vector<std::vector<std::size_t>> cost(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
    for (std::size_t i = 0; i <= from.size(); ++i)
        for (std::size_t j = 0; j <= to.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const std::size_t change = cost[i - 1][j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, change});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    return cost[from.size()][to.size()];
}

constexpr std::size_t kLongestCompared = 200;

} // namespace

std::string FindName(const std::string& wanted, const std::vector<std::string>& names)
{
    if (std::find(names.begin(), names.end(), wanted) != names.end())
        return wanted;
    const auto found =
        std::find_if(names.begin(), names.end(), [&](const std::string& name) { return base::SameName(name, wanted); });
    return found == names.end() ? std::string() : *found;
}

std::string NearestName(const std::string& wanted, const std::vector<std::string>& names)
{
    const std::string folded = base::FoldCase(wanted);
    if (folded.empty() || folded.size() > kLongestCompared)
        return {};
    std::string nearest;
    std::size_t least = folded.size() / 3 + 2; // three letters may hold two mistakes, and each three more another
    for (const std::string& name : names) {
        if (name.size() > kLongestCompared)
            continue;
        const std::size_t distance =
            base::FoldCase(name).starts_with(folded) ? 1 : Distance(folded, base::FoldCase(name));
        if (distance >= least)
            continue;
        least = distance;
        nearest = name;
    }
    return nearest;
}

std::string Suggestion(const std::string& wanted, const std::vector<std::string>& names)
{
    const std::string nearest = NearestName(wanted, names);
    return nearest.empty() ? std::string() : "; did you mean \"" + nearest + "\"?";
}

std::string QuotedList(const std::vector<std::string>& names)
{
    return names.empty() ? std::string() : fmt::format("\"{}\"", fmt::join(names, "\", \""));
}

} // namespace sm::app
