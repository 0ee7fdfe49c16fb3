// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/DwgSetup.h"

#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "machine/UnderlayPages.h"
#include "settings/mdlWinReg.h"

#include <sstream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// Where the converter's package goes when the share folder may not be written.
fs::path CacheFolder(const Install& install)
{
    return base::UserFolder(install.environment, "XDG_CACHE_HOME", ".cache") / "sheetmaker-pdf" / "dwg";
}

/// Folders of the search path for files that drawings refer to, divided as those of PATH are.
std::vector<std::string> SupportFolders(const Install& install)
{
    std::vector<std::string> folders;
    std::istringstream parts(install.environment("SHEETMAKER_PDF_SUPPORT").value_or(""));
    for (std::string folder; std::getline(parts, folder, base::kFolderDivider);)
        if (!folder.empty())
            folders.push_back(folder);
    return folders;
}

} // namespace

drawing::DwgOptions DwgOptionsOf(const Install& install, IRegistry& registry)
{
    const fs::path scripts = install.places.shareFolder / "dwg";
    drawing::DwgOptions options;
    options.converter = install.dwgConverter;
    if (options.converter.empty())
        options.converter = StoredSetting(registry, SettingNamed("DwgConverter").name);
    options.scriptFolder = install.places.shareFolder.empty() ? "" : base::ToText(scripts);
    options.packageFolders = {base::ToText(scripts), base::ToText(CacheFolder(install))};
    options.searchPath = install.environment("PATH");
    return options;
}

cadhost::HostOptions HostOptionsOf(const Install& install, IRegistry& registry, const std::string& workFolder,
                                   bool keepLayers)
{
    cadhost::HostOptions options{base::ToText(install.places.shareFolder), install.LoginName(),
                                 DwgOptionsOf(install, registry), install.PlotStyleFolder(), keepLayers};
    options.dwg.workFolder = workFolder;
    options.references = ReferenceOptionsOf(install, workFolder);
    return options;
}

render::ReferenceOptions ReferenceOptionsOf(const Install& install, const std::string& workFolder)
{
    render::ReferenceOptions options;
    options.supportFolders = SupportFolders(install);
    options.pages = CreateUnderlayPages("gs", workFolder);
    return options;
}

} // namespace sm::app
