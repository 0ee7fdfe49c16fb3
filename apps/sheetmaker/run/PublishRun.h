// SPDX-License-Identifier: GPL-3.0-or-later
// The sheets of several drawings go into one document, drawing by drawing through native documents.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"
#include "machine/SetLog.h"
#include "run/DrawingRun.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace sm::app {

/// A drawing of the set, with the layout asked for.
struct SetPart {
    std::string drawing;
    std::optional<std::string> layout;
    friend bool operator==(const SetPart&, const SetPart&) = default;
};

struct SetWishes {
    bool keepGoing = false; ///< what succeeds is saved when something fails
    std::size_t inHand = 1; ///< drawings: one is plotted while the next ones are read
};

/// `begins` hears, before it is opened, which drawing of the set is next, and the number of all before saving.
using SetProgress = std::function<void(std::size_t part)>;

/// `task` names the PDF and where it is saved. The report is that of the whole set: its notes name their drawings, and
/// its failure is empty when the PDF was saved. `log` takes in the sheets' logs and is finished. Nothing is thrown.
DrawingReport PublishSet(const std::vector<SetPart>& parts, SetWishes wishes, const DrawingTask& task, SetLog& log,
                         const Install& install, terminal::Console& console, const SetProgress& begins);

} // namespace sm::app
