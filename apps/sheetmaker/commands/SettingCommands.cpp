// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/SettingCommands.h"

#include "base/text/Names.h"
#include "commandline/ExitCodes.h"
#include "commandline/Suggest.h"
#include "plotting/PaperTable.h"
#include "preferences/SettingNames.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <fmt/format.h>
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

/// 0 once the text is stored.
int Store(IRegistry& registry, const Setting& setting, const std::string& text, std::ostream& err)
{
    StoreSetting(registry, setting.name, text);
    if (StoredSetting(registry, setting.name) == text)
        return kExitDone;
    err << "sheetmaker set: " << setting.name << " could not be stored\n";
    return kExitFailed;
}

bool IsMedium(const Setting& setting)
{
    return &setting == &SettingNamed("CanonicalMediaName");
}

/// Media are told apart by their sizes, so the size goes with the name. Empty text stands for the default of all three.
int SetMedium(IRegistry& registry, const Setting& setting, const std::string& name, std::ostream& err)
{
    std::vector<PaperSize> table;
    LoadPaperTable(table);
    std::vector<std::string> names;
    for (const PaperSize& row : table)
        names.push_back(row.CanonicalMediaName);
    const std::string known = FindName(name, names);
    if (known.empty() && !name.empty()) {
        err << "sheetmaker set: " << setting.name
            << " takes the name of a paper of the PDF plotter: " << QuotedList(names) << Suggestion(name, names)
            << "\n";
        return kExitUsage;
    }
    const auto row = std::find(names.begin(), names.end(), known);
    const PaperSize* const paper = known.empty() ? nullptr : &table[static_cast<std::size_t>(row - names.begin())];
    const std::string width = paper == nullptr ? "" : fmt::format("{}", paper->Width);
    const std::string height = paper == nullptr ? "" : fmt::format("{}", paper->Height);
    const Setting &widthSetting = SettingNamed("PaperWidth"), &heightSetting = SettingNamed("PaperHeight");
    for (const auto& [one, text] : {std::pair(&setting, known), {&widthSetting, width}, {&heightSetting, height}}) {
        if (const int code = Store(registry, *one, text, err); code != kExitDone)
            return code;
    }
    err << fmt::format("sheetmaker set: with it, PaperWidth is {} and PaperHeight {}\n", Value(registry, widthSetting),
                       Value(registry, heightSetting));
    return kExitDone;
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
    if (IsMedium(*setting))
        return SetMedium(registry, *setting, job.value, err);
    const CheckedValue checked = CheckValue(*setting, job.value, jobOptionNames);
    if (!checked.stored) {
        err << "sheetmaker set: " << setting->name << " " << checked.error << "\n";
        return kExitUsage;
    }
    return Store(registry, *setting, *checked.stored, err);
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
