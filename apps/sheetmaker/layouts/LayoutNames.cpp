// SPDX-License-Identifier: GPL-3.0-or-later
#include "layouts/LayoutNames.h"

#include "base/text/Names.h"
#include "commandline/Suggest.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>

namespace sm::app {
namespace {

/// Bytes of one character of UTF-8, at least one.
std::size_t CharacterLength(const std::string& text, std::size_t at)
{
    std::size_t length = 1;
    while (at + length < text.size() && (static_cast<unsigned char>(text[at + length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

/// Goes back to the last star only: its stretch grows by a character until the rest fits.
bool Fits(const std::string& name, const std::string& pattern)
{
    std::size_t at = 0, in = 0, afterStar = std::string::npos, stretched = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == '*') {
            afterStar = ++in;
            stretched = at;
        } else if (in < pattern.size() && pattern[in] == '?') {
            at += CharacterLength(name, at);
            ++in;
        } else if (in < pattern.size() && pattern[in] == name[at]) {
            ++at;
            ++in;
        } else if (afterStar != std::string::npos) {
            stretched += CharacterLength(name, stretched);
            at = stretched;
            in = afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == std::string::npos;
}

/// The place of a sheet by its name, or by its number from 1.
std::optional<std::size_t> PlaceOf(const std::string& word, std::span<const std::string> sheets)
{
    const std::string found = FindName(word, {sheets.begin(), sheets.end()});
    if (!found.empty())
        return static_cast<std::size_t>(std::find(sheets.begin(), sheets.end(), found) - sheets.begin());
    std::size_t number = 0;
    const char* const end = word.data() + word.size();
    const auto [next, failed] = std::from_chars(word.data(), end, number);
    if (failed != std::errc() || next != end || number < 1 || number > sheets.size())
        return std::nullopt;
    return number - 1;
}

std::vector<std::string> InRange(const std::string& first, const std::string& last, std::span<const std::string> sheets)
{
    const auto from = PlaceOf(first, sheets), to = PlaceOf(last, sheets);
    if (!from || !to)
        return {};
    const auto [low, high] = std::minmax(*from, *to);
    return {sheets.begin() + static_cast<std::ptrdiff_t>(low), sheets.begin() + static_cast<std::ptrdiff_t>(high) + 1};
}

std::vector<std::string> Sheets(const std::string& word, std::span<const std::string> sheets)
{
    if (const std::size_t dots = word.find(".."); dots != std::string::npos)
        if (auto range = InRange(word.substr(0, dots), word.substr(dots + 2), sheets); !range.empty())
            return range;
    if (word.find_first_of("*?") != std::string::npos) {
        std::vector<std::string> fitting;
        std::copy_if(sheets.begin(), sheets.end(), std::back_inserter(fitting),
                     [&](const std::string& name) { return FitsPattern(name, word); });
        return fitting;
    }
    const auto place = PlaceOf(word, sheets);
    return place ? std::vector<std::string>{sheets[*place]} : std::vector<std::string>();
}

} // namespace

bool FitsPattern(const std::string& name, const std::string& pattern)
{
    return Fits(base::FoldCase(name), base::FoldCase(pattern));
}

MeantLayouts LayoutsMeantBy(const std::string& word, const std::vector<std::string>& names, std::size_t models)
{
    const std::string exact = FindName(word, names);
    if (!exact.empty())
        return {{exact}, {}};
    MeantLayouts meant{Sheets(word, std::span(names).subspan(models)), {}};
    if (meant.names.empty()) {
        const std::string suggestion = Suggestion(word, names);
        meant.error =
            "has no layout \"" + word + "\"" + (suggestion.empty() ? "; it has " + QuotedList(names) : suggestion);
    }
    return meant;
}

} // namespace sm::app
