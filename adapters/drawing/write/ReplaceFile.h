// SPDX-License-Identifier: GPL-3.0-or-later
// Replaces a file so that it is either the old or the new one, whatever happens.
#pragma once

#include "tags/FileBytes.h"

#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing {

/// Writes `pieces` one after the other beside `path`, syncs and renames. Permissions stay; with `keepBackup` the former
/// file stays as `path` + ".bak". A symbolic link stays one. Throws DrawingError (read-only, full disk, ...) and leaves
/// the file as it was; refuses when it is no longer the one of `stamp`. An all-zero stamp stands for no file: a new one
/// is made, and refused when there is one. Gives the stamp of the new file.
FileStamp ReplaceFile(const std::string& path, const std::vector<std::string_view>& pieces, const FileStamp& stamp,
                      bool keepBackup);

} // namespace sm::drawing
