// One drawing becomes one PDF: the surroundings are wired, the plug-in is called, the report is filled.
#pragma once

#include "commandline/Jobs.h"
#include "report/RunReport.h"
#include "run/Install.h"
#include "terminal/Console.h"

#include <optional>
#include <string>

namespace sm::app {

struct DrawingTask {
    std::string drawing;
    std::optional<std::string> savePath; ///< what the save dialog is answered with
    ConvertOptions options;
    std::string logFileName; ///< empty: the user's conversion log
    std::string workFolder;  ///< empty, private; whoever starts the run removes it afterwards
};

/// Messages go to the console as they come up. Whatever happens is in the report; nothing is thrown.
DrawingReport ConvertDrawing(const DrawingTask& task, const Install& install, terminal::Console& console);

} // namespace sm::app
