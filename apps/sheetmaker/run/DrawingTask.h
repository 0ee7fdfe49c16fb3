// SPDX-License-Identifier: GPL-3.0-or-later
// What one run is asked to do.
#pragma once

#include "commandline/Jobs.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::app {

struct DrawingTask {
    std::string drawing;
    std::optional<std::string> savePath; ///< what the save dialog is answered with
    ConvertOptions options;
    std::string logFileName;           ///< empty: the user's conversion log
    std::string logFolder{};           ///< empty: the user's
    std::string workFolder{};          ///< empty, private; whoever starts the run removes it afterwards
    std::vector<std::string> sheets{}; ///< of a set, in their order: "plan.dxf" or "plan.dxf:Layout"
    std::size_t inHand = 1;            ///< of a set: drawings that are read at a time
    std::string placeFile{};           ///< of a set: holds the number of the sheet in hand; empty: nobody asks
};

} // namespace sm::app
