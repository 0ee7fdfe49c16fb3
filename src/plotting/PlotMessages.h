// SPDX-License-Identifier: GPL-3.0-or-later
// What the plot loop tells and asks the user.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IDesktop.h"

#include <string>

namespace sm {

enum class PlotMessage {
    DriverMissing,
    PageSetupNotInitialized,
    PlotterFolderNotSet,
    ViewNotFound,
    ViewNotOnLayout,
    MediaNotFound,
    Pc3NotFound,
    DisplayWithoutAnnotations, ///< Yes: go on without them
    PlotterFolderNotReset,     ///< followed by the folder in force
    OriginalPlotterMissing,    ///< Yes: tell again next time
};

/// Shows the message with `addition` after its text. Never throws.
MessageAnswer ShowPlotMessage(CallContext& context, PlotMessage message, const std::string& addition = {});

} // namespace sm
