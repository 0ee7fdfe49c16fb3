// SPDX-License-Identifier: GPL-3.0-or-later
// DWG files become DXF by a converter: a program of its own, kept apart and within limits.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {

struct DwgOptions {
    /// The user's choice: a command line with "{in}" and "{out}" in its words, or "node", "dwg2dxf" or "oda" by name.
    /// Empty: node with our script, else dwg2dxf, whichever is there.
    std::string converter;
    std::string scriptFolder;                ///< holds to-dxf.mjs and the script that installs its npm package
    std::vector<std::string> packageFolders; ///< where "node_modules" may lie, the first that has the package counts
    std::optional<std::string> searchPath;   ///< where programs are looked for; nothing: $PATH
    std::uint32_t seconds = 60;              ///< that a conversion may take; ten more for each begun megabyte
    std::string workFolder;                  ///< for temporary files; empty: the system's
};

/// What would convert a DWG.
struct DwgReadiness {
    bool ready = false;
    std::string what;   ///< "dwg2dxf 0.13.3", or what is missing
    std::string remedy; ///< what mends it; empty when ready
    bool remedyIsCommand = false;
};

/// Looks for the converter that `options` ask for. Runs nothing but `dwg2dxf --version`.
DwgReadiness ExamineDwgConverter(const DwgOptions& options);

/// Why `converter` can't be one (see DwgOptions::converter), as the end of a sentence about it; empty when it can.
std::string DwgConverterError(const std::string& converter);

} // namespace sm::drawing
