// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing becomes one PDF: the surroundings are wired, the plug-in is called, the report is filled.
#pragma once

#include "machine/Install.h"
#include "report/RunReport.h"
#include "run/DrawingTask.h"
#include "terminal/Console.h"

namespace sm::app {

/// Messages go to the console as they come up. Whatever happens is in the report; nothing is thrown.
DrawingReport ConvertDrawing(const DrawingTask& task, const Install& install, terminal::Console& console);

} // namespace sm::app
