// SPDX-License-Identifier: GPL-3.0-or-later
// Which program this is.
#pragma once

#include <string>

namespace sm::app {

/// "1.2.3".
std::string Version();
/// The first digits of the commit that it was built from; empty when that wasn't known.
std::string Commit();
/// "sheetmaker 1.2.3 (0123456789)", or without the commit.
std::string VersionLine(const std::string& version, const std::string& commit);

} // namespace sm::app
