// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Roff.h"

#include <sstream>

namespace sm::app {

std::string RoffText(const std::string& text)
{
    std::string roff;
    for (const char c : text) {
        if (c == '\\')
            roff += "\\e";
        else if (c == '-')
            roff += "\\-";
        else
            roff += c;
    }
    return roff.starts_with('.') || roff.starts_with('\'') ? "\\&" + roff : roff;
}

std::string Bold(const std::string& text)
{
    return "\\fB" + RoffText(text) + "\\fR";
}

std::string Italic(const std::string& text)
{
    return "\\fI" + RoffText(text) + "\\fR";
}

RoffPage::RoffPage(const std::string& title, const std::string& section, const std::string& version)
    : m_text(".\\\" Made from the program's own table of options; changes belong there.\n.TH " + title + " " + section +
             " \"\" \"sheetmaker " + version + "\" \"Sheetmaker PDF\"\n")
{
}

RoffPage& RoffPage::Section(const std::string& heading)
{
    m_text += ".SH " + heading + "\n";
    return *this;
}

RoffPage& RoffPage::Line(const std::string& line)
{
    m_text += line + "\n";
    return *this;
}

RoffPage& RoffPage::Paragraphs(const std::string& text)
{
    std::istringstream lines(text);
    bool fresh = true;
    for (std::string line; std::getline(lines, line);) {
        const bool indented = line.starts_with("  ");
        if (line.empty() || (indented && !fresh))
            m_text += line.empty() ? ".PP\n" : ".br\n";
        fresh = line.empty();
        if (!line.empty())
            m_text += RoffText(line.substr(line.find_first_not_of(' '))) + "\n";
    }
    return *this;
}

RoffPage& RoffPage::Item(const std::string& term, const std::string& explanation)
{
    m_text += ".TP\n" + term + "\n" + RoffText(explanation) + "\n";
    return *this;
}

RoffPage& RoffPage::Verbatim(const std::vector<std::string>& lines)
{
    m_text += ".nf\n";
    for (const std::string& line : lines)
        m_text += RoffText(line) + "\n";
    m_text += ".fi\n";
    return *this;
}

} // namespace sm::app
