// SPDX-License-Identifier: GPL-3.0-or-later
// The few roff requests that the manual pages are made of.
#pragma once

#include <string>
#include <vector>

namespace sm::app {

/// Text as a line of roff: backslashes, minus signs and leading dots or quotes are made harmless.
std::string RoffText(const std::string& text);
std::string Bold(const std::string& text);
std::string Italic(const std::string& text);

class RoffPage {
public:
    /// `title` as "SHEETMAKER-CONVERT", `section` "1" or "5".
    RoffPage(const std::string& title, const std::string& section, const std::string& version);

    RoffPage& Section(const std::string& heading);
    /// `line` is roff already.
    RoffPage& Line(const std::string& line);
    /// Plain text; empty lines part paragraphs.
    RoffPage& Paragraphs(const std::string& text);
    /// A term, roff already, and its plain explanation.
    RoffPage& Item(const std::string& term, const std::string& explanation);
    /// Plain lines that are shown as they are.
    RoffPage& Verbatim(const std::vector<std::string>& lines);
    [[nodiscard]] const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

} // namespace sm::app
