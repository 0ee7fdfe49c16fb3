// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Names.h"

#include "base/text/Keywords.h"
#include "base/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

#include <utf8proc.h>

namespace sm::base {

namespace {

constexpr char32_t kFirstAccent = 0x300; ///< below it nothing can be joined with its neighbour
constexpr char32_t kDottedCapitalI = 0x130;

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Where the full folding gives several letters ("ß"), the simple one is the small letter.
char32_t FoldedLetter(char32_t c)
{
    if (c < 0x80)
        return static_cast<char32_t>(LowerAscii(static_cast<char>(c)));
    if (c == kDottedCapitalI)
        return c; // its small letter is told from "i" in the languages that have it alone
    std::array<utf8proc_int32_t, 4> folded{};
    int lastClass = 0;
    const auto count = utf8proc_decompose_char(static_cast<utf8proc_int32_t>(c), folded.data(), folded.size(),
                                               UTF8PROC_CASEFOLD, &lastClass);
    return static_cast<char32_t>(count == 1 ? folded[0] : utf8proc_tolower(static_cast<utf8proc_int32_t>(c)));
}

std::string Joined(std::string text)
{
    utf8proc_uint8_t* joined = nullptr;
    const auto length =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                     &joined, static_cast<utf8proc_option_t>(UTF8PROC_COMPOSE | UTF8PROC_STABLE));
    const std::unique_ptr<utf8proc_uint8_t, void (*)(void*)> owner(joined, std::free);
    return length < 0 ? text : std::string(reinterpret_cast<const char*>(joined), static_cast<std::size_t>(length));
}

} // namespace

std::string FoldCase(std::string_view utf8)
{
    if (IsAscii(utf8))
        return LowerAscii(utf8);
    std::string folded;
    folded.reserve(utf8.size());
    bool valid = true, accents = false;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t from = at;
        const auto character = ReadUtf8(utf8, at);
        if (character)
            AppendUtf8(folded, FoldedLetter(*character));
        else
            folded += utf8[from];
        valid = valid && character;
        accents = accents || (character && *character >= kFirstAccent);
    }
    return valid && accents ? Joined(std::move(folded)) : folded;
}

bool SameName(std::string_view left, std::string_view right)
{
    return IsAscii(left) && IsAscii(right) ? SameAscii(left, right) : FoldCase(left) == FoldCase(right);
}

} // namespace sm::base
