// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers by the words that the command line has for them: their names in small letters.
#pragma once

#include "ports/PlotNumbers.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sm::app {

std::vector<std::string> WordsOf(std::span<const NamedNumber> numbers);
/// Nothing for a word that isn't among them.
std::optional<std::int32_t> NumberOfWord(const std::string& word, std::span<const NamedNumber> numbers);
/// Empty for a number that has no name.
std::string WordOf(std::int32_t number, std::span<const NamedNumber> numbers);
/// "0 display, 1 extents".
std::string ListOf(std::span<const NamedNumber> numbers);

} // namespace sm::app
