// What "doctor" looks at in ways that differ from system to system.
#pragma once

#include "machine/Install.h"

#include <filesystem>
#include <string>

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

/// How another temporary folder is chosen.
extern const char* const kTemporaryRemedy;

/// The first line that a program prints of itself; empty when it can't be run.
std::string VersionOf(const std::string& program, const system::Environment& environment);
/// Is there an outline font in the folder, or below it?
bool HoldsFont(const std::filesystem::path& folder);
/// Whether files can be made in the folder, or in the nearest folder above it that is there.
Finding WritableFolder(const std::string& what, std::filesystem::path folder, const std::string& remedy);

} // namespace sm::app
