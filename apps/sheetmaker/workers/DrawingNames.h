// SPDX-License-Identifier: GPL-3.0-or-later
// Which drawings a run converts.
#pragma once

#include "commandline/Jobs.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::app {

/// `named`, then those that the file `list` names, a name a line as it is, but for the line's end; "-" is standard
/// input. Throws Refusal for an empty name, a list that can't be read or names none, and when there is no name at all.
std::vector<std::string> WithListed(std::vector<std::string> named, const std::optional<std::string>& list);

/// Those of the line, then those of --list. Throws Refusal like WithListed, and for standard input that is wanted
/// twice.
std::vector<std::string> NamedDrawings(const ConvertJob& job);

/// "; did you mean \"plan.dxf\"?" for a path that leads nowhere, when its folder has such a file; else empty.
std::string SimilarFile(const std::string& path);

} // namespace sm::app
