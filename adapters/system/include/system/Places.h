// SPDX-License-Identifier: GPL-3.0-or-later
// Where a run finds and leaves its files.
#pragma once

#include "system/Environment.h"

#include <filesystem>

namespace sm::system {

struct Places {
    std::filesystem::path settingsFolder; ///< the user's settings
    std::filesystem::path stateFolder;    ///< log and run state
    std::filesystem::path shareFolder;    ///< shipped data, read only; empty when it can't be found

    [[nodiscard]] std::filesystem::path SettingsFile() const { return settingsFolder / "settings.sqlite"; }
};

/// The XDG folders (a relative path in their variables is ignored, as the XDG base directory rules say; without HOME
/// the account's home folder serves), and the share folder: "SHEETMAKER_PDF_SHARE" when set, else
/// "../share/sheetmaker-pdf" of the executable's folder, else "share/sheetmaker-pdf" of the nearest folder above it
/// (a source tree). Makes nothing.
Places FindPlaces(const Environment& environment, const std::filesystem::path& executable);

/// The running program's own file; empty when it can't be told.
std::filesystem::path ExecutablePath();

} // namespace sm::system
