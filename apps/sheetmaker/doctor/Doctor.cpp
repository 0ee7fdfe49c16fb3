// SPDX-License-Identifier: GPL-3.0-or-later
#include "doctor/Doctor.h"

#include "base/files/Paths.h"
#include "commandline/ExitCodes.h"
#include "machine/DwgSetup.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>
#include <ostream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;
using State = Finding::State;

Finding ShareFolder(const Install& install)
{
    const fs::path& share = install.places.shareFolder;
    const std::string remedy = "install sheetmaker-pdf anew, or set SHEETMAKER_PDF_SHARE to its share folder";
    if (share.empty())
        return {State::Missing, "share folder", "not found", remedy};
    std::error_code unreadable;
    for (const char* part : {"Drivers/ps8.hdi", "PC3", "Settings"})
        if (!fs::exists(share / part, unreadable))
            return {State::Missing, "share folder", base::ToText(share / part) + " is missing", remedy};
    return {State::Good, "share folder", base::ToText(share), {}};
}

Finding JobOptionFiles(const Install& install)
{
    const std::vector<std::string> names = JobOptionNames(install);
    if (names.empty())
        return {State::Missing, "job options", "none installed", "install sheetmaker-pdf anew"};
    return {State::Good, "job options", fmt::format("{}", fmt::join(names, ", ")), {}};
}

Finding DwgConverter(const Install& install)
{
    const auto registry = OpenSettings(install, [](const std::string&) {}); // told of the settings already
    const drawing::DwgReadiness found = drawing::ExamineDwgConverter(DwgOptionsOf(install, *registry));
    return {found.ready ? State::Good : State::Optional, "DWG converter",
            found.ready ? found.what : found.what + " (needed for DWG files older than R9 alone)", found.remedy};
}

const char* Mark(State state)
{
    return state == State::Good ? "ok      " : state == State::Optional ? "optional" : "MISSING ";
}

} // namespace

std::vector<Finding> Examine(const Install& install)
{
    std::error_code unset;
    const fs::path temporary = fs::temp_directory_path(unset);
    std::vector<Finding> findings{
        Ghostscript(install),
        {State::Good, "PDF library", "libqpdf, part of this program", {}},
        Fonts(install),
        ShareFolder(install),
        JobOptionFiles(install),
        Settings(install),
        WritableFolder("log folder", install.places.stateFolder, "give yourself the right to write there"),
        WritableFolder("temporary folder", unset ? base::ToPath(P_tmpdir) : temporary, kTemporaryRemedy),
        Viewer(install),
        Windows(install),
        DwgConverter(install)};
    const std::vector<Finding> further = FurtherFindings(install);
    findings.insert(findings.end(), further.begin(), further.end());
    return findings;
}

std::string FindingText(const std::vector<Finding>& findings)
{
    std::string text;
    for (const Finding& finding : findings) {
        text += fmt::format("{}  {}: {}\n", Mark(finding.state), finding.what, finding.detail);
        if (!finding.remedy.empty())
            text += fmt::format("          -> {}\n", finding.remedy);
    }
    return text;
}

int RunDoctor(const Install& install, std::ostream& out)
{
    const std::vector<Finding> findings = Examine(install);
    out << FindingText(findings);
    const bool missing = std::any_of(findings.begin(), findings.end(),
                                     [](const Finding& finding) { return finding.state == State::Missing; });
    return missing ? kExitToolMissing : kExitDone;
}

} // namespace sm::app
