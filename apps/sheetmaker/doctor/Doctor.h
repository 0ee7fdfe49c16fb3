// SPDX-License-Identifier: GPL-3.0-or-later
// "doctor": what a conversion needs, whether it is there, and the command that mends what isn't.
#pragma once

#include "doctor/SystemFindings.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

std::vector<Finding> Examine(const Install& install);

/// One line a finding, and one more for its remedy.
std::string FindingText(const std::vector<Finding>& findings);

/// 0 when nothing needed is missing, else 3.
int RunDoctor(const Install& install, std::ostream& out);

} // namespace sm::app
