// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/Mutator.h"

#include <algorithm>
#include <array>

namespace sm::fuzz {

namespace {

/// Numbers that arithmetic doesn't like, and texts that aren't quite numbers or names.
constexpr std::array<std::string_view, 40> kHostile{"1e300",
                                                    "-1e300",
                                                    "1e17",
                                                    "1e15",
                                                    "1e-300",
                                                    "nan",
                                                    "-nan",
                                                    "inf",
                                                    "-inf",
                                                    "0",
                                                    "-0",
                                                    "-1",
                                                    "1",
                                                    "2",
                                                    "3",
                                                    "7",
                                                    "0.5",
                                                    "90",
                                                    "360",
                                                    "127",
                                                    "128",
                                                    "255",
                                                    "256",
                                                    "32767",
                                                    "-32768",
                                                    "65535",
                                                    "65536",
                                                    "2147483647",
                                                    "2147483648",
                                                    "-2147483648",
                                                    "4294967295",
                                                    "4294967296",
                                                    "9223372036854775807",
                                                    "-9223372036854775808",
                                                    "18446744073709551616",
                                                    "1E+308",
                                                    "",
                                                    "%%c\\U+",
                                                    "\\S1^2;{\\H",
                                                    "../../x"};

/// Group codes that mean something somewhere.
constexpr std::array kCodes{0,   1,   2,   3,   5,   6,   7,   8,    10,   11,   12,   13,   14,   20,   21,   22,  30,
                            39,  40,  41,  42,  43,  44,  45,  46,   47,   48,   49,   50,   51,   52,   53,   60,  62,
                            66,  67,  68,  69,  70,  71,  72,  73,   74,   75,   76,   78,   79,   90,   91,   92,  93,
                            94,  95,  96,  97,  98,  100, 101, 102,  140,  147,  160,  170,  171,  172,  173,  174, 175,
                            176, 210, 220, 230, 280, 281, 290, 291,  300,  302,  304,  310,  330,  340,  341,  350, 360,
                            370, 420, 440, 450, 452, 453, 463, 1000, 1001, 1002, 1004, 1005, 1010, 1040, 1070, 1071};

std::string Joined(const std::vector<std::string>& records)
{
    std::string text;
    for (const std::string& record : records)
        text += record;
    return text;
}

/// Behind the line's end, or where the text ends.
std::size_t LineEnd(std::string_view text, std::size_t at)
{
    const std::size_t end = text.find('\n', at);
    return end == std::string_view::npos ? text.size() : end + 1;
}

} // namespace

Mutator::Mutator(const Target& target, std::span<const std::string> others, std::uint64_t seed)
    : m_target(target), m_others(others), m_random(seed)
{
}

std::string Mutator::Mutated(const std::string& input)
{
    if (m_target.changes != Changes::Bytes && Below(4) != 0)
        return MutatedWhole(input);
    std::string changed = input;
    for (std::size_t left = 1 + Below(4); left > 0; --left)
        ChangeBytes(changed);
    changed.resize(std::min(changed.size(), m_target.most));
    return changed;
}

std::string Mutator::MutatedWhole(const std::string& input)
{
    Records records = Split(input);
    for (std::size_t left = 1 + Below(4); left > 0; --left)
        ChangeRecords(records);
    std::string changed = Joined(records);
    changed.resize(std::min(changed.size(), m_target.most));
    return changed;
}

Mutator::Records Mutator::Split(std::string_view text) const
{
    Records records;
    while (!text.empty()) {
        std::size_t end = LineEnd(text, 0);
        if (m_target.changes == Changes::Tags)
            end = LineEnd(text, end);
        records.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return records;
}

void Mutator::ChangeBytes(std::string& input)
{
    constexpr std::size_t kLongest = 40;
    if (input.empty())
        input = "\n";
    const std::size_t at = Below(input.size());
    switch (Below(8)) {
    case 0:
        input[at] = static_cast<char>(Below(256));
        break;
    case 1:
        input[at] = static_cast<char>(static_cast<unsigned char>(input[at]) ^ 1U << Below(8));
        break;
    case 2:
        input.resize(at);
        break;
    case 3:
        input.erase(at, 1 + Below(kLongest));
        break;
    case 4:
        input.insert(at, input.substr(Below(input.size()), Below(kLongest)));
        break;
    case 5:
        input.insert(at, Hostile());
        break;
    case 6: {
        const std::string word = input.substr(Below(input.size()), 1U << Below(4));
        input.replace(at, word.size(), word);
        break;
    }
    default: // a count or a place of some bytes
        for (std::size_t i = at, end = std::min(input.size(), at + (std::size_t{1} << Below(4))); i < end; ++i)
            input[i] = static_cast<char>(Below(2) == 0 ? 0xFF : 0);
    }
}

void Mutator::ChangeRecords(Records& records)
{
    if (records.empty() || Below(12) == 0) {
        Splice(records);
        return;
    }
    const std::size_t at = Below(records.size()), other = Below(records.size());
    const auto place = records.begin() + static_cast<std::ptrdiff_t>(at);
    switch (Below(8)) {
    case 0:
        records.erase(place);
        break;
    case 1: {
        const std::string copy = records[other];
        records.insert(place, copy);
        break;
    }
    case 2:
        std::swap(records[at], records[other]);
        break;
    case 3: { // a run of them once more
        const Records copy(records.begin() + static_cast<std::ptrdiff_t>(std::min(at, other)),
                           records.begin() + static_cast<std::ptrdiff_t>(std::max(at, other)));
        records.insert(place, copy.begin(), copy.end());
        break;
    }
    default:
        ChangeRecord(records[at]);
    }
}

void Mutator::ChangeRecord(std::string& record)
{
    m_target.changes == Changes::Tags ? ChangePair(record) : ChangeLine(record);
}

void Mutator::ChangePair(std::string& pair)
{
    const std::size_t value = LineEnd(pair, 0);
    if (Below(4) == 0)
        pair = std::to_string(kCodes[Below(kCodes.size())]) + "\n" + pair.substr(value);
    else
        pair = pair.substr(0, value) + Hostile() + "\n";
}

/// A number in it, or a word, becomes another.
void Mutator::ChangeLine(std::string& line)
{
    const std::string_view marks =
        Below(2) == 0 ? "0123456789.-" : "\"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_";
    const std::size_t begin = line.find_first_of(marks, Below(line.size() + 1));
    if (begin == std::string::npos) {
        line.insert(Below(line.size() + 1), Hostile());
        return;
    }
    const std::size_t end = line.find_first_not_of(marks, begin);
    line.replace(begin, end == std::string::npos ? end : end - begin, Hostile());
}

/// Some of another input in place of some of this one.
void Mutator::Splice(Records& records)
{
    if (m_others.empty())
        return;
    const Records other = Split(m_others[Below(m_others.size())]);
    if (other.empty())
        return;
    const auto begin = other.begin() + static_cast<std::ptrdiff_t>(Below(other.size()));
    const auto end = begin + static_cast<std::ptrdiff_t>(1 + Below(static_cast<std::size_t>(other.end() - begin)));
    const auto at = records.begin() + static_cast<std::ptrdiff_t>(Below(records.size() + 1));
    records.insert(at, begin, end);
}

std::string Mutator::Hostile()
{
    if (Below(6) == 0)
        return std::to_string(static_cast<std::int64_t>(m_random()) >> Below(64));
    return std::string(kHostile[Below(kHostile.size())]);
}

} // namespace sm::fuzz
