#include "commands/SettingCommands.h"

#include "base/text/Names.h"
#include "commandline/ExitCodes.h"
#include "commandline/Suggest.h"
#include "preferences/SettingNames.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <ostream>

namespace sm::app {
namespace {

/// The stored text; empty when the default is in force.
std::string Stored(IRegistry& registry, const SettingName& setting)
{
    return RegReadString(registry, RegistryRoot::CurrentUser, kSettingsKey, setting.name).value_or("");
}

std::string Value(IRegistry& registry, const SettingName& setting)
{
    const std::string stored = Stored(registry, setting);
    return stored.empty() ? setting.defaultValue : stored;
}

int UnknownSetting(const std::string& command, const std::string& name, std::ostream& err)
{
    const std::string suggestion = Suggestion(name, SettingNameList());
    err << "sheetmaker " << command << ": there is no setting \"" << name << "\""
        << (suggestion.empty() ? "; \"sheetmaker list\" shows them" : suggestion) << "\n";
    return kExitUsage;
}

} // namespace

int RunGet(IRegistry& registry, const GetJob& job, std::ostream& out, std::ostream& err)
{
    const SettingName* setting = FindSetting(job.name);
    if (!setting)
        return UnknownSetting("get", job.name, err);
    out << Value(registry, *setting) << "\n";
    return kExitDone;
}

int RunSet(IRegistry& registry, const SetJob& job, const std::vector<std::string>& jobOptionNames, std::ostream& err)
{
    const SettingName* setting = FindSetting(job.name);
    if (!setting)
        return UnknownSetting("set", job.name, err);
    const CheckedValue checked = CheckValue(*setting, job.value, jobOptionNames);
    if (!checked.stored) {
        err << "sheetmaker set: " << setting->name << " " << checked.error << "\n";
        return kExitUsage;
    }
    RegWriteString(registry, RegistryRoot::CurrentUser, kSettingsKey, setting->name, *checked.stored);
    if (Stored(registry, *setting) == *checked.stored)
        return kExitDone;
    err << "sheetmaker set: " << setting->name << " could not be stored\n";
    return kExitFailed;
}

int RunList(IRegistry& registry, const ListJob& job, std::ostream& out, std::ostream& err)
{
    bool any = false;
    for (const SettingName& setting : AllSettings()) {
        if (base::FoldCase(setting.name).find(base::FoldCase(job.part)) == std::string::npos)
            continue;
        any = true;
        const bool changed = !Stored(registry, setting).empty();
        out << (changed ? "* " : "  ") << setting.name << " = " << Value(registry, setting) << "\n";
    }
    if (any)
        return kExitDone;
    err << "sheetmaker list: no setting's name contains \"" << job.part << "\"\n";
    return kExitUsage;
}

} // namespace sm::app
