// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/CodePage.h"

#include "base/text/Keywords.h"
#include "base/text/PageReader.h"
#include "base/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <mutex>
#include <utility>

namespace sm::drawing {

namespace {

/// Names of $DWGCODEPAGE that hold no page number, in capitals.
constexpr std::array<std::pair<std::string_view, const char*>, 18> kNamed{{
    {"", "CP1252"},
    {"ASCII", "CP1252"},
    {"US-ASCII", "CP1252"},
    {"UNDEFINED", "CP1252"},
    {"UTF-8", "CP1252"},
    {"UTF8", "CP1252"},
    {"ISO8859-1", "CP1252"},
    {"ISO8859-2", "ISO-8859-2"},
    {"ISO8859-5", "ISO-8859-5"},
    {"ISO8859-7", "ISO-8859-7"},
    {"ISO8859-9", "ISO-8859-9"},
    {"MAC-ROMAN", "MACINTOSH"},
    {"GB2312", "GBK"},
    {"BIG5", "BIG5"},
    {"KSC5601", "CP949"},
    {"JOHAB", "JOHAB"},
    {"KOI8-R", "KOI8-R"},
    {"SHIFT_JIS", "CP932"},
}};

/// Pages whose converter has another name; and the one that stands for all that a system doesn't have.
constexpr std::array<std::pair<std::string_view, const char*>, 5> kNumbered{{
    {"1252", "CP1252"},
    {"936", "GBK"},
    {"950", "BIG5"},
    {"1361", "JOHAB"},
    {"65001", "CP1252"},
}};

} // namespace

std::string ConverterName(std::string_view codePage)
{
    const std::string name = base::UpperAscii(codePage);
    for (const auto& [known, converter] : kNamed)
        if (name == known)
            return converter;
    const std::size_t digit = name.find_first_of("0123456789");
    const std::string number = digit == std::string::npos ? std::string() : name.substr(digit);
    for (const auto& [known, converter] : kNumbered)
        if (number == known)
            return converter;
    const bool plain = !number.empty() && number.size() <= 4 &&
                       std::all_of(number.begin(), number.end(), [](unsigned char c) { return std::isdigit(c); });
    return plain && base::PageReader("CP" + number).Knows() ? "CP" + number : std::string();
}

CodePage::CodePage(const std::string& converter) : m_converter(converter), m_single(256), m_pairs(256)
{
    if (!base::PageReader(m_converter).Knows())
        m_converter = "CP1252";
    LoadSingles();
    const std::array pairPages{"CP932", "GBK", "CP949", "BIG5", "JOHAB"};
    if (std::find(pairPages.begin(), pairPages.end(), m_converter) == pairPages.end())
        return;
    for (unsigned lead = 0x81; lead < 0xFF; ++lead)
        if (m_single[lead] == 0)
            LoadPairs(lead);
}

void CodePage::LoadSingles()
{
    base::PageReader reader(m_converter);
    for (unsigned byte = 0; byte < 256; ++byte)
        m_single[byte] = byte < 0x80 ? byte : reader.One(std::string(1, static_cast<char>(byte)));
    // The holes of the Windows pages are control characters there.
    for (unsigned byte = 0x80; byte < 0xA0 && m_converter.starts_with("CP125"); ++byte)
        if (m_single[byte] == 0)
            m_single[byte] = byte;
}

void CodePage::LoadPairs(unsigned lead)
{
    base::PageReader reader(m_converter);
    std::vector<char32_t> row(256);
    for (unsigned trail = 0x31; trail < 0xFF; ++trail)
        row[trail] = reader.One({static_cast<char>(lead), static_cast<char>(trail)});
    if (std::any_of(row.begin(), row.end(), [](char32_t c) { return c != 0; }))
        m_pairs[lead] = std::move(row);
}

char32_t CodePage::Read(std::string_view text, std::size_t& at) const
{
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (m_single[lead] != 0 || lead == 0)
        return m_single[lead];
    if (m_pairs[lead].empty() || at >= text.size())
        return base::kReplacement;
    const char32_t character = m_pairs[lead][static_cast<unsigned char>(text[at])];
    if (character == 0)
        return base::kReplacement;
    ++at;
    return character;
}

std::optional<std::string> CodePage::Encode(char32_t character) const
{
    if (character < 0x80)
        return std::string(1, static_cast<char>(character));
    const auto single = std::find(m_single.begin() + 0x80, m_single.end(), character);
    if (single != m_single.end())
        return std::string(1, static_cast<char>(single - m_single.begin()));
    for (std::size_t lead = 0x80; lead < m_pairs.size(); ++lead) {
        const auto pair = std::find(m_pairs[lead].begin(), m_pairs[lead].end(), character);
        if (pair != m_pairs[lead].end())
            return std::string{static_cast<char>(lead), static_cast<char>(pair - m_pairs[lead].begin())};
    }
    return std::nullopt;
}

std::shared_ptr<const CodePage> SharedPage(const std::string& converter)
{
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<const CodePage>> pages;
    const std::scoped_lock lock(mutex);
    std::shared_ptr<const CodePage>& page = pages[converter];
    if (!page)
        page = std::make_shared<const CodePage>(converter);
    return page;
}

} // namespace sm::drawing
