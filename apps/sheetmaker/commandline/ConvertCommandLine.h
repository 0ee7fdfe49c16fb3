// The part of the command line that converts drawings.
#pragma once

#include "commandline/Jobs.h"

namespace CLI {
class App;
}

namespace sm::app {

/// Adds "convert"; `job` outlives the parsing.
void AddConvert(CLI::App& program, ConvertJob& job);

} // namespace sm::app
