// SPDX-License-Identifier: GPL-3.0-or-later
// Every call that the doubles of a program were asked for, test by test, in a file: two runs of the same tests by
// different roads are compared line by line.
#pragma once

#include <string>

namespace sm {

/// Writes the line to the file named by the environment variable SM_JOURNAL; does nothing without it. A line
/// "## Suite.Test" stands before the calls of each test. Line ends within a call are written as "\r" and "\n".
void NoteInJournal(const std::string& line);

} // namespace sm
