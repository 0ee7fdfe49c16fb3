// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/NamedNumbers.h"

#include "settings/mdlUtilities.h"

namespace sm::app {

std::vector<std::string> WordsOf(std::span<const NamedNumber> numbers)
{
    std::vector<std::string> words;
    for (const NamedNumber& one : numbers)
        words.push_back(LowerAsciiText(one.name));
    return words;
}

std::optional<std::int32_t> NumberOfWord(const std::string& word, std::span<const NamedNumber> numbers)
{
    for (const NamedNumber& one : numbers)
        if (LowerAsciiText(one.name) == word)
            return one.number;
    return std::nullopt;
}

std::string WordOf(std::int32_t number, std::span<const NamedNumber> numbers)
{
    for (const NamedNumber& one : numbers)
        if (one.number == number)
            return LowerAsciiText(one.name);
    return {};
}

std::string ListOf(std::span<const NamedNumber> numbers)
{
    std::string list;
    for (const NamedNumber& one : numbers)
        list += (list.empty() ? "" : ", ") + std::to_string(one.number) + " " + LowerAsciiText(one.name);
    return list;
}

} // namespace sm::app
