// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FontSubstitutions.h"

#include <algorithm>

namespace sm::render {

void FontSubstitutions::Note(const std::string& who, const std::string& what)
{
    auto found =
        std::find_if(m_list.begin(), m_list.end(), [&](const Substitution& known) { return known.what == what; });
    if (found == m_list.end()) {
        found = m_list.insert(found, {what, {}});
    }
    if (std::find(found->who.begin(), found->who.end(), who) == found->who.end()) {
        found->who.push_back(who);
    }
}

std::vector<std::string> FontSubstitutions::Lines() const
{
    constexpr std::size_t kNamed = 3;
    std::vector<std::string> lines;
    for (const Substitution& substitution : m_list) {
        const std::size_t count = substitution.who.size(), named = count > kNamed + 1 ? kNamed : count;
        std::string line = substitution.what + " (";
        for (std::size_t i = 0; i < named; ++i) {
            line += (i > 0 ? ", " : "") + substitution.who[i];
        }
        lines.push_back(line + (named < count ? " and " + std::to_string(count - named) + " more)" : ")"));
    }
    return lines;
}

} // namespace sm::render
