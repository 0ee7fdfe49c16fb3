// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the files that a drawing names: pictures, underlays, other drawings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {

/// Where named files are looked for besides the place that the name itself tells.
struct SearchPlaces {
    std::string folder;                      ///< the drawing's own
    std::vector<std::string> supportFolders; ///< asked after it, in this order
};

/// Path of the regular file that `name` means; empty when there is none. Separators and drive letters of Windows are
/// mended, and letter case is where no file is written exactly so. Asked in this order: the full path as written; below
/// each of the places the path, then its parts from the longest to the bare file name. Nothing on a network share or
/// behind an address ("http://…") is touched; nothing in the folders of the system's devices and processes is used,
/// whatever links lead there.
std::string FindReferenced(const std::string& name, const SearchPlaces& places);

} // namespace sm::drawing
