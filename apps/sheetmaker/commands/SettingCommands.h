// SPDX-License-Identifier: GPL-3.0-or-later
// "get", "set" and "list".
#pragma once

#include "commandline/Jobs.h"
#include "ports/IRegistry.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

/// Results go to `out`, one line for each fault to `err`. Each returns the exit code.
int RunGet(IRegistry& registry, const GetJob& job, std::ostream& out, std::ostream& err);
/// `jobOptionNames` are those installed.
int RunSet(IRegistry& registry, const SetJob& job, const std::vector<std::string>& jobOptionNames, std::ostream& err);
int RunList(IRegistry& registry, const ListJob& job, std::ostream& out, std::ostream& err);

} // namespace sm::app
