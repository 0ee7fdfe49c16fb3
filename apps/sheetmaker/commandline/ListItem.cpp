// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/ListItem.h"

#include "commandline/Refusal.h"
#include "commandline/Suggest.h"

#include <algorithm>
#include <charconv>

namespace sm::app {
namespace {

/// From 1 on; 0 when the text is no number of the list.
std::size_t NumberIn(const std::string& text, std::size_t count)
{
    std::size_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end && number <= count ? number : 0;
}

std::vector<std::size_t> Named(const std::vector<std::string>& wanted,
                               const std::vector<std::vector<std::string>>& names)
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (std::any_of(wanted.begin(), wanted.end(), [&](const std::string& one) {
                return std::find(names[i].begin(), names[i].end(), one) != names[i].end();
            }))
            found.push_back(i);
    return found;
}

} // namespace

void RequireItem(const std::string& item, const std::string& what)
{
    if (item.empty())
        throw Refusal{kExitUsage, what + " is required"};
}

std::size_t FindItem(const std::vector<std::string>& wanted, const std::vector<std::vector<std::string>>& names,
                     const std::string& drawing, const std::string& what)
{
    const std::vector<std::size_t> found = Named(wanted, names);
    if (found.size() == 1)
        return found.front();
    if (found.size() > 1)
        throw Refusal{kExitUsage, drawing + " has several " + what + "s \"" + wanted.front() +
                                      "\"; name the one that is meant by its number, as \"list\" shows it"};
    if (const std::size_t number = NumberIn(wanted.front(), names.size()))
        return number - 1;
    std::vector<std::string> last;
    for (const std::vector<std::string>& one : names)
        last.push_back(one.back());
    const std::string suggestion = Suggestion(wanted.front(), last);
    throw Refusal{kExitUsage, drawing + " has no " + what + " \"" + wanted.front() + "\"" +
                                  (last.empty() ? "; it has none at all"
                                                : (suggestion.empty() ? "; it has " + QuotedList(last) : suggestion))};
}

} // namespace sm::app
