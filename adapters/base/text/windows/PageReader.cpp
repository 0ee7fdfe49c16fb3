// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/PageReader.h"

#include "base/text/NumberText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include <windows.h>

namespace sm::base {

namespace {

/// The system's numbers of pages that have a name.
constexpr std::array<std::pair<std::string_view, UINT>, 9> kNamed{{
    {"ISO-8859-2", 28592},
    {"ISO-8859-5", 28595},
    {"ISO-8859-7", 28597},
    {"ISO-8859-9", 28599},
    {"MACINTOSH", 10000},
    {"GBK", 936},
    {"BIG5", 950},
    {"JOHAB", 1361},
    {"KOI8-R", 20866},
}};

/// 0: the system has no such page.
UINT NumberOf(const std::string& page)
{
    const auto named = std::find_if(kNamed.begin(), kNamed.end(), [&](const auto& pair) { return pair.first == page; });
    const auto number = named != kNamed.end()    ? named->second
                        : page.starts_with("CP") ? static_cast<UINT>(ParseInteger(std::string_view(page).substr(2)))
                                                 : 0;
    return number > 3 && ::IsValidCodePage(number) != FALSE ? number : 0; // those below stand for other pages
}

} // namespace

struct PageReader::Converter {
    UINT page;
};

PageReader::PageReader(const std::string& page) : m_converter(std::make_unique<Converter>(Converter{NumberOf(page)})) {}

PageReader::~PageReader() = default;

bool PageReader::Knows() const
{
    return m_converter->page != 0;
}

char32_t PageReader::One(std::string bytes)
{
    wchar_t wide[4] = {};
    const int count = ::MultiByteToWideChar(m_converter->page, MB_ERR_INVALID_CHARS, bytes.data(),
                                            static_cast<int>(bytes.size()), wide, 4);
    if (count == 2 && IS_SURROGATE_PAIR(wide[0], wide[1]))
        return 0x10000 + ((static_cast<char32_t>(wide[0]) - 0xD800) << 10) + (static_cast<char32_t>(wide[1]) - 0xDC00);
    // What a page leaves open is given as a character of private use.
    return count == 1 && !(wide[0] >= 0xE000 && wide[0] <= 0xF8FF) ? static_cast<char32_t>(wide[0]) : 0;
}

} // namespace sm::base
