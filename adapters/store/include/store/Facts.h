// SPDX-License-Identifier: GPL-3.0-or-later
// The facts that the install ships: what an installer would have written.
#pragma once

#include "store/ValueTable.h"

#include <string>

namespace sm::store {

/// Full paths without a trailing separator.
struct Install {
    std::string helpFile;       ///< "acadsmpdf.hlp"
    std::string settingsFolder; ///< holds the job options files
    std::string version;        ///< "1.2.3"
    std::string hostFolder; ///< where the embedded host's own files lie; its default plotter folder is "Plotters" below
};

/// Help file, settings folder and version of the product under LocalMachine; the embedded host's release chain under
/// CurrentUser, where a host of release 16 keeps it, and under LocalMachine; its install record under LocalMachine.
ValueTable ShippedFacts(const Install& install);

} // namespace sm::store
