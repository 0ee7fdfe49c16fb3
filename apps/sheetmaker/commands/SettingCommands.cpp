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

std::string Value(IRegistry& registry, const Setting& setting)
{
    const std::string stored = StoredSetting(registry, setting.name);
    return stored.empty() ? DefaultText(setting) : stored;
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
    const Setting* setting = FindSetting(job.name);
    if (!setting)
        return UnknownSetting("get", job.name, err);
    out << Value(registry, *setting) << "\n";
    return kExitDone;
}

int RunSet(IRegistry& registry, const SetJob& job, const std::vector<std::string>& jobOptionNames, std::ostream& err)
{
    const Setting* setting = FindSetting(job.name);
    if (!setting)
        return UnknownSetting("set", job.name, err);
    const CheckedValue checked = CheckValue(*setting, job.value, jobOptionNames);
    if (!checked.stored) {
        err << "sheetmaker set: " << setting->name << " " << checked.error << "\n";
        return kExitUsage;
    }
    StoreSetting(registry, setting->name, *checked.stored);
    if (StoredSetting(registry, setting->name) == *checked.stored)
        return kExitDone;
    err << "sheetmaker set: " << setting->name << " could not be stored\n";
    return kExitFailed;
}

int RunList(IRegistry& registry, const ListJob& job, std::ostream& out, std::ostream& err)
{
    bool any = false;
    for (const Setting& setting : kSettings) {
        if (base::FoldCase(setting.name).find(base::FoldCase(job.part)) == std::string::npos)
            continue;
        any = true;
        const bool changed = !StoredSetting(registry, setting.name).empty();
        out << (changed ? "* " : "  ") << setting.name << " = " << Value(registry, setting) << "\n";
    }
    if (any)
        return kExitDone;
    err << "sheetmaker list: no setting's name contains \"" << job.part << "\"\n";
    return kExitUsage;
}

} // namespace sm::app
