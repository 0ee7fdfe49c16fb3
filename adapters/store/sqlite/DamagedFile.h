// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a settings file that can't be used.
#pragma once

#include "store/Database.h"

#include <filesystem>
#include <string>

namespace sm::store {

/// Empty when the file is a settings file (or an empty one) in good order; otherwise why it isn't. Throws DatabaseError
/// when it can't be told, for example without the right to read.
std::string DamageOf(Database& database);
std::string DamageOf(const std::filesystem::path& file);

/// Renames the file, and its write-ahead log with it, to the first free "<name>-damaged-<n><extension>" beside it;
/// gives the new path. Throws std::filesystem::filesystem_error.
std::filesystem::path MoveAside(const std::filesystem::path& file);

} // namespace sm::store
