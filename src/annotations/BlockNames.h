// SPDX-License-Identifier: GPL-3.0-or-later
// The names under which block attributes become document properties.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

namespace sm {

class ILocale;

/// Every character but "_", "-", digits and the letters A to Z and a to z becomes "-"; the last character, when it is
/// such a one, is dropped instead. Works by character, not by byte.
std::string SanitizeName(ILocale& locale, const std::string& text);

/// How many references of each block with attributes were met in one conversion, over all its sheets.
class BlockNames {
public:
    /// Counts one more reference and gives "<sanitized name>_<count>".
    std::string Next(ILocale& locale, const std::string& blockName);

private:
    struct Entry {
        std::string sanitized;
        std::int32_t count = 0;
    };
    std::unordered_map<std::string, Entry> m_entries;
};

} // namespace sm
