// SPDX-License-Identifier: GPL-3.0-or-later
// What "doctor" looks at in ways that differ from system to system.
#pragma once

#include "machine/Install.h"

#include <filesystem>
#include <string>
#include <vector>

namespace sm::app {

struct Finding {
    enum class State { Good, Optional, Missing };
    State state = State::Good;
    std::string what;   ///< "Ghostscript"
    std::string detail; ///< what was found, or what is wrong
    std::string remedy; ///< the command or deed that mends it; empty when nothing has to be
};

Finding Ghostscript(const Install& install);
Finding Fonts(const Install& install);
Finding Settings(const Install& install);
Finding Viewer(const Install& install);
Finding Windows(const Install& install);
/// What this system alone has.
std::vector<Finding> FurtherFindings(const Install& install);

/// How another temporary folder is chosen, and what is missing is got.
extern const char* const kTemporaryRemedy;
extern const char* const kFontsRemedy;
/// The PostScript interpreter's path; empty when there is none.
std::string InterpreterProgram(const Install& install);

/// Whether files can be made in the folder, or in the nearest folder above it that is there.
Finding WritableFolder(const std::string& what, std::filesystem::path folder, const std::string& remedy);

} // namespace sm::app
