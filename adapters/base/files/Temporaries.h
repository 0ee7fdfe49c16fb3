// SPDX-License-Identifier: GPL-3.0-or-later
// Temporaries lie beside the file that they are to become.
#pragma once

#include <string>

namespace sm::base {

/// The folder of a path as it stands in it, with its separator; empty for the working folder.
std::string FolderPartOf(const std::string& path);

} // namespace sm::base
