// SPDX-License-Identifier: GPL-3.0-or-later
// What the system tells this program about itself.
#pragma once

#include <array>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace sm::base {

/// Tells this process from all others that run.
std::int64_t ProcessNumber();

/// A variable of the environment; nothing when it isn't set.
std::optional<std::string> Variable(const char* name);
/// All of them, "NAME=value".
std::vector<std::string> Variables();

/// The name of the account that the process runs under; empty when the system doesn't tell.
std::string AccountName();

/// Is the stream of that kind shown on a terminal?
enum class Stream { Input = 0, Output = 1, Errors = 2 };
bool IsTerminal(Stream stream);
/// Does what is written there reach anybody: a terminal, or a file or pipe that it was led into? Not so where a desktop
/// starts programs: there is no such stream, or nobody looks at where it goes.
bool IsRead(Stream stream);

/// Bytes of memory that the machine has; 0: unknown.
std::uint64_t MachineMemory();

/// 128 bits that nobody can guess; nothing when the system gives none.
std::optional<std::array<std::uint64_t, 2>> RandomWords();

/// The calendar's date and time of day in the user's time zone.
std::tm LocalTime(std::time_t time);
/// From now on this process is in UTC, and so is what it starts.
void LiveInUtc();

/// Called once, first of all: bytes pass through the standard streams as they are, text on a terminal is UTF-8, and a
/// reader that went away or a file that would grow too large is an error of the write, not the end of the process.
void PrepareProcess();

/// Becomes another program, which gets these words after its own name and everything that this process has open. Comes
/// back only when that can't be, with errno's text of the reason.
std::string BecomeProgram(const std::string& program, const std::vector<std::string>& words);

} // namespace sm::base
