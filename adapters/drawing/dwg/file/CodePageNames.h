// SPDX-License-Identifier: GPL-3.0-or-later
// Code pages by the number that DWG files give them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace sm::drawing::dwg {

/// As the variable $DWGCODEPAGE spells it; empty for a number that isn't known.
inline std::string_view CodePageName(std::uint16_t number)
{
    static constexpr std::array<std::string_view, 45> kNames{
        "UTF-8",     "US-ASCII",  "ISO8859-1", "ISO8859-2", "ISO8859-3", "ISO8859-4", "ISO8859-5", "ISO8859-6",
        "ISO8859-7", "ISO8859-8", "ISO8859-9", "DOS437",    "DOS850",    "DOS852",    "DOS855",    "DOS857",
        "DOS860",    "DOS861",    "DOS863",    "DOS864",    "DOS865",    "DOS869",    "DOS932",    "MAC-ROMAN",
        "BIG5",      "KSC5601",   "JOHAB",     "DOS866",    "ANSI_1250", "ANSI_1251", "ANSI_1252", "GB2312",
        "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256", "ANSI_1257", "ANSI_874",  "ANSI_932",  "ANSI_936",
        "ANSI_949",  "ANSI_950",  "ANSI_1361", "UTF-16",    "ANSI_1258"};
    return number < kNames.size() ? kNames[number] : std::string_view();
}

} // namespace sm::drawing::dwg
