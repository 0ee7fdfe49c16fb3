// SPDX-License-Identifier: GPL-3.0-or-later
// The job options sets that lie in the settings folder.
#pragma once

#include "plugin/CallContext.h"

#include <optional>
#include <string>
#include <vector>

namespace sm {

/// The names of all sets, in the folder's order: what stands before ".joboptions", letter case aside.
std::vector<std::string> ListJobOptions(Surroundings& surroundings);
/// The full path of a set.
std::string JobOptionsPath(Surroundings& surroundings, const std::string& name);
/// Lets the user pick a set and stores the choice; nothing when cancelled. Never throws.
std::optional<std::string> PickJobOptions(Surroundings& surroundings);

} // namespace sm
