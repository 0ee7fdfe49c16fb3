// SPDX-License-Identifier: GPL-3.0-or-later
// How this machine and its user read DWG files and what drawings refer to.
#pragma once

#include "cadhost/HostOptions.h"
#include "machine/Install.h"
#include "ports/IRegistry.h"

#include <string>

namespace sm::app {

/// The converter of this run, else that of the stored setting "DwgConverter", else the first that is there.
drawing::DwgOptions DwgOptionsOf(const Install& install, IRegistry& registry);

/// `workFolder` is for temporary files; empty: the system's. Files that drawings refer to are also looked for in the
/// folders of the environment's SHEETMAKER_PDF_SUPPORT, with colons between them.
cadhost::HostOptions HostOptionsOf(const Install& install, IRegistry& registry, const std::string& workFolder,
                                   bool keepLayers = false);

/// Where files that drawings refer to are looked for, and what shows pages of PDF files.
render::ReferenceOptions ReferenceOptionsOf(const Install& install, const std::string& workFolder = "");

} // namespace sm::app
