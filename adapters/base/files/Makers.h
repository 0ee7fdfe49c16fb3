// SPDX-License-Identifier: GPL-3.0-or-later
// Who makes temporary things: this machine and its processes, as the system tells of them.
#pragma once

#include <cstdint>
#include <string>

namespace sm::base {

/// A number in 16 digits.
std::string Hexadecimal(std::uint64_t number);

/// The machine's name; empty when it has none.
std::string MachineName();

/// What tells this machine from all others, and the containers of a machine, in which process numbers mean something
/// else, from each other; letters, digits, "-", "." and "_". Empty when the machine doesn't tell its name.
std::string ThisMachine();

/// The name of a machine and a number for what else tells it apart.
std::string MachineMark(std::string name, const std::string& marks);

/// When a process of this machine began, in the system's own units; 0: unknown.
std::uint64_t StartOf(std::int64_t process);

/// Has that process, which began then (0: unknown), ended? False where it can't be known.
bool HasEnded(std::int64_t process, std::uint64_t start);

std::uint64_t RandomNumber();

/// Is it a folder, no link, of this process's user?
bool IsOwnFolder(const std::string& path);

} // namespace sm::base
