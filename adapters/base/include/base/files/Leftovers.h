// SPDX-License-Identifier: GPL-3.0-or-later
// Temporary files and folders tell by their names which process made them, so that a later run can remove what one that
// was killed left behind.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sm::base {

/// A name that nobody can guess: prefix, machine, process, the process's start, a random number, ending. The parts are
/// divided by "-"; the start tells a process from a later one of the same number. `ending` holds no "-".
std::string TemporaryName(std::string_view prefix, std::string_view ending);

/// Is `name` one of those, and its process one of this machine that has ended? False for what can't be known: names of
/// other machines, and of processes in another container of this one.
bool IsAbandoned(std::string_view name, std::string_view prefix, std::string_view ending);

/// How many names of a folder are looked at for what is abandoned: no run takes long over a large folder.
constexpr std::size_t kMostNamesSeen = 10000;

/// Removes the abandoned files with such names from `folder`; what can't be removed stays.
void RemoveAbandonedFiles(const std::string& folder, std::string_view prefix, std::string_view ending);

/// The same for folders of this user, with all that is in them.
void RemoveAbandonedFolders(const std::string& folder, std::string_view prefix);
/// The same, for each folder when this process asks first; those that it forks find that it did.
void RemoveAbandonedFoldersOnce(const std::string& folder, std::string_view prefix);

} // namespace sm::base
