// Which drawings a run converts.
#pragma once

#include "commandline/Jobs.h"

#include <string>
#include <vector>

namespace sm::app {

/// Those of the line, then those of --list: a name a line, as it is, but for the line's end; "-" reads the list from
/// standard input. Throws Refusal for an empty name, a list that can't be read or names none, and standard input that
/// is wanted twice.
std::vector<std::string> NamedDrawings(const ConvertJob& job);

/// "; did you mean \"plan.dxf\"?" for a path that leads nowhere, when its folder has such a file; else empty.
std::string SimilarFile(const std::string& path);

} // namespace sm::app
