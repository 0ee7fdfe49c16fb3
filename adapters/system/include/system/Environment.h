// SPDX-License-Identifier: GPL-3.0-or-later
// The environment variables that a run looks at.
#pragma once

#include "base/files/UserFolders.h"

#include <string>

namespace sm::system {

/// Value of a variable; nothing when it isn't set.
using Environment = base::VariableLookup;

/// The process's own.
Environment ProcessEnvironment();

/// Full path of the first executable file called `program` in the folders of "PATH"; empty when there is none. A
/// name with a "/" in it is taken as a path.
std::string FindProgram(const Environment& environment, const std::string& program);

} // namespace sm::system
