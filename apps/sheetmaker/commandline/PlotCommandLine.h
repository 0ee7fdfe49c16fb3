// SPDX-License-Identifier: GPL-3.0-or-later
// The options that change how layouts are plotted.
#pragma once

#include "commandline/Jobs.h"

namespace CLI { // NOLINT(readability-identifier-naming): the library calls itself so
class App;
}

namespace sm::app {

/// `options` outlives the parsing.
void AddPlotOptions(CLI::App& command, PlotOptions& options);

} // namespace sm::app
