#include "commands/Readiness.h"

#include "base/files/Paths.h"
#include "commandline/Refusal.h"

#include <filesystem>

namespace sm::app {

void NeedTools(const Install& install)
{
    if (install.places.shareFolder.empty())
        throw Refusal{kExitToolMissing, "the install's share folder can't be found; \"sheetmaker doctor\" says more"};
    if (system::FindProgram(install.environment, "gs").empty())
        throw Refusal{kExitToolMissing, "Ghostscript (gs) is not installed: sudo apt-get install ghostscript"};
}

void NeedSettings(const Install& install)
{
    const std::string trouble = SettingsTrouble(install);
    if (!trouble.empty())
        throw Refusal{kExitFailed, trouble + " Mend or remove it, or name another folder by XDG_CONFIG_HOME."};
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
