// SPDX-License-Identifier: GPL-3.0-or-later
// The conversion driver: the active drawing becomes one PDF file.
#pragma once

#include "plugin/CallContext.h"
#include "ports/Variant.h"

namespace sm {

/// Runs one conversion over the drawing of `context`, from the choice of the path to the saved PDF. Failing host and
/// library calls are carried past; what stops the run is told to the user by whoever met it. Never throws.
/// `whatToPlot`: every number but that of the current tab stands for all paper layouts. `optimization` is a
/// LineQuality. `jobOptionsFile` is a name without folder and extension. `hostValue` is handed to the save as it is.
void ConvertToPdfDriver(CallContext& context, std::int32_t hostValue, std::int32_t whatToPlot,
                        VariantBool promptForFileName, VariantBool openInViewer, VariantBool deletePs,
                        std::int32_t optimization, const std::string& jobOptionsFile);

} // namespace sm
