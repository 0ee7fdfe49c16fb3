// SPDX-License-Identifier: GPL-3.0-or-later
// Lines for the user on the error stream, and the one progress line that gives way to them.
#pragma once

#include <iosfwd>
#include <string>

namespace sm::terminal {

class Console {
public:
    /// `out` outlives this object. Progress is shown only when `showsProgress`, that is, on a real terminal.
    Console(std::ostream& out, bool showsProgress) : m_out(out), m_showsProgress(showsProgress) {}
    ~Console() { ClearProgress(); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// One line, complete and at once.
    void Line(const std::string& text);
    /// Takes the place of the former progress line. Control characters are shown as "?".
    void Progress(const std::string& text);
    void ClearProgress();

private:
    std::ostream& m_out;
    bool m_showsProgress;
    bool m_progressShown = false;
};

} // namespace sm::terminal
