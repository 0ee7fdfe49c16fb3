// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/DialectPage.h"

#include <array>
#include <charconv>

namespace sm::publisher {

namespace {

constexpr std::string_view kMark = "%SheetmakerLayer: ";

/// The word in front of the next blank, cut off `line` with it.
std::string_view NextWord(std::string_view& line)
{
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    return word;
}

std::optional<DialectLayer::State> StateOf(std::string_view word)
{
    using State = DialectLayer::State;
    constexpr std::array<std::pair<std::string_view, State>, 3> kStates{
        {{"on", State::On}, {"off", State::Off}, {"unplotted", State::NotPlotted}}};
    for (const auto& [name, state] : kStates) {
        if (word == name) {
            return state;
        }
    }
    return std::nullopt;
}

std::optional<std::string> FromHex(std::string_view hex)
{
    if (hex.size() < 2 || hex.size() % 2 != 0 || hex.front() != '<' || hex.back() != '>') {
        return std::nullopt;
    }
    std::string bytes;
    for (std::size_t i = 1; i + 1 < hex.size(); i += 2) {
        unsigned value = 0;
        const auto read = std::from_chars(hex.data() + i, hex.data() + i + 2, value, 16);
        if (read.ptr != hex.data() + i + 2) {
            return std::nullopt;
        }
        bytes += static_cast<char>(value);
    }
    return bytes;
}

} // namespace

std::optional<std::map<std::uint32_t, DialectLayer>> ReadDialectLayers(std::string_view head)
{
    std::map<std::uint32_t, DialectLayer> layers;
    while (!head.empty()) {
        std::string_view line = head.substr(0, head.find('\n'));
        head.remove_prefix(std::min(line.size() + 1, head.size()));
        if (!line.starts_with(kMark)) {
            continue;
        }
        line.remove_prefix(kMark.size());
        const std::string_view digits = NextWord(line);
        std::uint32_t number = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        const auto state = StateOf(NextWord(line));
        auto name = FromHex(line);
        if (digits.empty() || read.ptr != digits.data() + digits.size() || !state || !name) {
            return std::nullopt;
        }
        layers[number] = {*state, std::move(*name)};
    }
    return layers;
}

} // namespace sm::publisher
