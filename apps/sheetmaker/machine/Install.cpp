#include "machine/Install.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "store/Facts.h"
#include "store/SettingsFile.h"
#include "store/SqliteRegistry.h"
#include "system/SystemPorts.h"

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
    return {environment,
            system::FindPlaces(environment, executable, SM_SOURCE_SHARE),
            SM_VERSION,
            {},
            executable.parent_path() / "sheetmaker-pdf-windows"};
}

bool CanReadSettings(const Install& install, const std::function<void(const std::string&)>& complain)
{
    return store::SettingsFile(install.places.SettingsFile(), complain).CanRead();
}

std::unique_ptr<IRegistry> OpenSettings(const Install& install, const std::function<void(const std::string&)>& complain)
{
    const std::string share = base::ToText(install.places.shareFolder);
    const store::Install facts{base::ToText(install.places.shareFolder / "acadsmpdf.hlp"), install.JobOptionsFolder(),
                               install.version, share};
    return store::OpenSqliteRegistry(install.places.SettingsFile(), store::ShippedFacts(facts), complain,
                                     store::Reading::Once);
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
