// SPDX-License-Identifier: GPL-3.0-or-later
// Code pages of drawing files, both ways, on the system's converter.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing {

/// The converter's name of a page as $DWGCODEPAGE spells it ("ANSI_1252", "dos850", "UNDEFINED"; any letter case).
/// Empty for a name nobody knows.
std::string ConverterName(std::string_view codePage);

/// A single-byte or two-byte code page as a table. Immutable, so safe for many threads.
class CodePage {
public:
    /// `converter` as ConverterName gives it; a page the system does not have reads as CP1252.
    explicit CodePage(const std::string& converter);

    /// The character at `at` (which is in front of the end), moving behind it. Bytes that mean nothing become U+FFFD.
    char32_t Read(std::string_view text, std::size_t& at) const;
    /// The bytes of a character in this page, or nothing.
    [[nodiscard]] std::optional<std::string> Encode(char32_t character) const;

private:
    void LoadSingles();
    void LoadPairs(unsigned lead);

    std::string m_converter;
    std::vector<char32_t> m_single;             ///< 256; 0: leads a pair or means nothing
    std::vector<std::vector<char32_t>> m_pairs; ///< by lead byte; empty when it leads none
};

/// The page's table, made once and kept: drawings share it. For many threads.
std::shared_ptr<const CodePage> SharedPage(const std::string& converter);

} // namespace sm::drawing
