// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/BlockNames.h"

#include "ports/ISystem.h"

#include <vector>

namespace sm {

namespace {

/// The characters of UTF-8 text; a byte that doesn't belong counts as one character.
std::vector<char32_t> Characters(const std::string& text)
{
    std::vector<char32_t> result;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
        char32_t character = length == 1 ? lead : lead & (0xFFu >> (length + 1));
        std::size_t taken = 1;
        while (taken < length && i + taken < text.size() &&
               (static_cast<unsigned char>(text[i + taken]) & 0xC0) == 0x80)
            character = character << 6 | (static_cast<unsigned char>(text[i + taken++]) & 0x3Fu);
        result.push_back(character);
        i += taken;
    }
    return result;
}

bool Allowed(std::int32_t code)
{
    return code == '_' || code == '-' || (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
           (code >= 'a' && code <= 'z');
}

} // namespace

std::string SanitizeName(ILocale& locale, const std::string& text)
{
    const std::vector<char32_t> characters = Characters(text);
    std::string result;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const std::int32_t code = locale.AnsiCode(characters[i]);
        if (Allowed(code))
            result += static_cast<char>(code);
        else if (i + 1 < characters.size())
            result += '-';
    }
    return result;
}

std::string BlockNames::Next(ILocale& locale, const std::string& blockName)
{
    auto [entry, isNew] = m_entries.try_emplace(blockName);
    if (isNew)
        entry->second.sanitized = SanitizeName(locale, blockName);
    return entry->second.sanitized + "_" + std::to_string(++entry->second.count);
}

} // namespace sm
