// SPDX-License-Identifier: GPL-3.0-or-later
// "publish": sheets of several drawings become one PDF.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"
#include "run/PublishRun.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

/// "plan.dxf:Ground floor" is a drawing and a layout unless a file has that whole name.
SetPart ParseSetPart(const std::string& text);

/// The same of each.
std::vector<SetPart> ParseSetParts(const std::vector<std::string>& texts);

/// The PDF goes to its place, its name to `out`, everything else to `err`. Returns the exit code.
int RunPublish(const PublishJob& job, const Install& install, std::ostream& out, std::ostream& err);

/// What a worker does with the task of a set: keeps `placeFile`, and its part of the log.
DrawingReport MakeSet(const PublishJob& job, const DrawingTask& task, const std::vector<SetPart>& parts,
                      const Install& install, terminal::Console& console);

} // namespace sm::app
