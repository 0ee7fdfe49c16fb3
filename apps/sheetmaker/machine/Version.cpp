// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/Version.h"

namespace sm::app {

std::string Version()
{
    return SM_VERSION;
}

std::string VersionLine(const std::string& version, const std::string& commit)
{
    return "sheetmaker " + version + (commit.empty() ? "" : " (" + commit + ")");
}

} // namespace sm::app
