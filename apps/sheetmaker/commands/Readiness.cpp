// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/Readiness.h"

#include "base/files/Paths.h"
#include "commandline/Refusal.h"
#include "commandline/Suggest.h"
#include "system/SystemPorts.h"

#include <filesystem>
#include <ostream>

namespace sm::app {

void NeedTools(const Install& install)
{
    if (install.places.shareFolder.empty())
        throw Refusal{kExitToolMissing, "the install's share folder can't be found; \"sheetmaker doctor\" says more"};
}

void NeedSettings(const Install& install, std::ostream& err)
{
    std::string trouble;
    if (!CanReadSettings(install, [&](const std::string& text) { trouble = text; }))
        throw Refusal{kExitFailed, trouble + " Mend or remove it, or name another folder by XDG_CONFIG_HOME."};
    if (!trouble.empty())
        err << "warning: " << trouble << "\n";
}

void NeedBuildDate(const Install& install)
{
    const std::string text = install.environment("SOURCE_DATE_EPOCH").value_or("");
    if (!text.empty() && !system::BuildDate(install.environment))
        throw Refusal{kExitUsage, "SOURCE_DATE_EPOCH is no number of seconds since 1970: " + text};
}

void NeedJobOptions(ConvertOptions& options, const Install& install)
{
    if (!options.jobOptions)
        return;
    const std::vector<std::string> names = JobOptionNames(install);
    const std::string found = FindName(*options.jobOptions, names);
    if (found.empty()) {
        const std::string suggestion = Suggestion(*options.jobOptions, names);
        throw Refusal{kExitUsage, "there are no job options \"" + *options.jobOptions + "\"" +
                                      (suggestion.empty() ? "; there are " + QuotedList(names) : suggestion)};
    }
    options.jobOptions = found;
}

void MakeFolderOf(const std::string& pdfPath)
{
    const std::filesystem::path folder = std::filesystem::absolute(base::ToPath(pdfPath)).parent_path();
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    if (failed)
        throw Refusal{kExitUsage, "the folder " + base::ToText(folder) + " can't be made: " + failed.message()};
}

} // namespace sm::app
