// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/Console.h"

#include <algorithm>
#include <ostream>

namespace sm::terminal {
namespace {

constexpr const char* kClearLine = "\r\x1b[K";

/// Names come from drawings: nothing in them may steer the terminal or break the line.
std::string Printable(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, '?');
    return text;
}

} // namespace

void Console::Line(const std::string& text)
{
    ClearProgress();
    m_out << Printable(text) << '\n' << std::flush;
}

void Console::Progress(const std::string& text)
{
    if (!m_showsProgress)
        return;
    m_out << kClearLine << Printable(text) << std::flush;
    m_progressShown = true;
}

void Console::ClearProgress()
{
    if (!m_progressShown)
        return;
    m_out << kClearLine << std::flush;
    m_progressShown = false;
}

} // namespace sm::terminal
