// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/Install.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "base/text/Names.h"
#include "machine/Version.h"
#include "store/Facts.h"
#include "system/SystemPorts.h"

#include <algorithm>

namespace sm::app {

std::string Install::LoginName() const
{
    for (const char* variable : {"LOGNAME", "USER"}) {
        const std::string name = environment(variable).value_or("");
        if (!name.empty())
            return name;
    }
    return base::AccountName();
}

Install ThisInstall()
{
    const system::Environment environment = system::ProcessEnvironment();
    const std::filesystem::path executable = system::ExecutablePath();
    return {environment, system::FindPlaces(environment, executable), Version(), {}, WindowsProgram(executable)};
}

store::ValueTable FactsOf(const Install& install)
{
    const std::string share = base::ToText(install.places.shareFolder);
    return store::ShippedFacts({base::ToText(install.places.shareFolder / "acadsmpdf.hlp"), install.JobOptionsFolder(),
                                install.version, share});
}

std::string LanguageOf(const system::Environment& environment)
{
    std::string name;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (name = environment(variable).value_or(""); !name.empty())
            break;
    name.erase(std::min(name.find_first_of(".@"), name.size()));
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const bool plain = name.size() == 2 || (name.size() == 5 && name[2] == '_');
    if (!plain || std::count_if(name.begin(), name.end(), isLetter) != (name.size() == 2 ? 2 : 4))
        return {};
    std::replace(name.begin(), name.end(), '_', '-');
    return name;
}

std::vector<std::string> PlotStyleNames(const Install& install)
{
    std::vector<std::string> names;
    const auto files = system::CreateFileSystem();
    for (const std::string& folder :
         {base::ToText(install.places.shareFolder / "PlotStyles"), install.PlotStyleFolder()})
        for (const std::string& file : files->ListFiles(folder)) {
            const std::string ending = base::FoldCase(file.substr(file.size() - std::min<std::size_t>(4, file.size())));
            const bool isNew = std::find(names.begin(), names.end(), file) == names.end();
            if (isNew && (ending == base::FoldCase(".ctb") || ending == base::FoldCase(".stb")))
                names.push_back(file);
        }
    return names;
}

std::vector<std::string> JobOptionNames(const Install& install)
{
    constexpr std::string_view kExtension = ".joboptions";
    std::vector<std::string> names;
    for (const std::string& file : system::CreateFileSystem()->ListFiles(install.JobOptionsFolder()))
        if (file.ends_with(kExtension))
            names.push_back(file.substr(0, file.size() - kExtension.size()));
    return names;
}

} // namespace sm::app
