// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of a drawing file as UTF-8: the file's encoding, \U+XXXX and \M+nXXXX.
#pragma once

#include "drawing/CodePage.h"

#include <array>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace sm::drawing {

class TextDecoder {
public:
    /// `converter` as ConverterName gives it. `utf8`: the file is UTF-8; texts that aren't read in the code page.
    TextDecoder(const std::string& converter, bool utf8);

    /// Replaces `target`; plain ASCII is copied as it is.
    void Decode(std::string_view raw, std::string& target) const;
    [[nodiscard]] std::string Decode(std::string_view raw) const;
    /// Appends instead.
    void Append(std::string_view raw, std::string& target) const;
    /// The text in the file's encoding; characters outside it as \U+XXXX.
    [[nodiscard]] std::string Encode(std::string_view utf8) const;

private:
    bool AppendEscape(std::string_view raw, std::size_t& at, std::string& target) const;
    bool AppendPaged(std::string_view raw, std::size_t& at, std::string& target) const;
    const CodePage& Page() const;
    const CodePage& PageOfEscape(std::size_t number) const;

    struct LazyPage {
        std::once_flag once;
        std::shared_ptr<const CodePage> page;
    };
    std::string m_converter;
    bool m_utf8;
    mutable LazyPage m_page;
    mutable std::array<LazyPage, 5> m_escapePages;
};

/// "^J", "^I", "^M" and "^ " as the characters they stand for (tab, line feed, return, caret); other carets stay.
void DecodeCarets(std::string& text);

} // namespace sm::drawing
