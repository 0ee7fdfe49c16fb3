// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/SettingNames.h"

#include "commandline/Suggest.h"
#include "drawing/DwgConverter.h"

#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <map>

namespace sm::app {
namespace {

const std::map<std::string, std::string> kSwitchWords = {{"1", "1"}, {"yes", "1"}, {"on", "1"},  {"true", "1"},
                                                         {"0", "0"}, {"no", "0"},  {"off", "0"}, {"false", "0"}};

CheckedValue CheckSwitch(const std::string& value)
{
    for (const auto& [word, stored] : kSwitchWords)
        if (!FindName(value, {word}).empty())
            return {stored, {}};
    return {{}, "takes 1 or 0"};
}

CheckedValue CheckNumber(const Setting& setting, const std::string& value)
{
    double number = 0;
    const char* end = value.data() + value.size();
    const auto [next, error] = std::from_chars(value.data(), end, number);
    const bool whole = setting.kind == SettingKind::WholeNumber;
    if (error != std::errc() || next != end || !std::isfinite(number) || (whole && number != std::floor(number)))
        return {{}, whole ? "takes a whole number" : "takes a number, with \".\" for the decimals"};
    if (number < setting.least)
        return {{}, fmt::format("takes {} or more", setting.least)};
    if (number > setting.most)
        return {{}, fmt::format("takes {} to {}", setting.least, setting.most)};
    return {value, {}};
}

CheckedValue CheckJobOptions(const std::string& value, const std::vector<std::string>& names)
{
    const std::string found = FindName(value, names);
    if (!found.empty())
        return {found, {}};
    return {{}, "takes the name of installed job options: " + (names.empty() ? "there are none" : QuotedList(names))};
}

} // namespace

std::vector<std::string> SettingNameList()
{
    std::vector<std::string> names;
    for (const Setting& setting : kSettings)
        names.emplace_back(setting.name);
    return names;
}

const Setting* FindSetting(const std::string& name)
{
    const std::string found = FindName(name, SettingNameList());
    for (const Setting& setting : kSettings)
        if (found == setting.name)
            return &setting;
    return nullptr;
}

CheckedValue CheckValue(const Setting& setting, const std::string& value,
                        const std::vector<std::string>& jobOptionNames)
{
    if (value.empty())
        return {value, {}};
    switch (setting.kind) {
    case SettingKind::Switch:
        return CheckSwitch(value);
    case SettingKind::WholeNumber:
    case SettingKind::Number:
        return CheckNumber(setting, value);
    case SettingKind::JobOptions:
        return CheckJobOptions(value, jobOptionNames);
    case SettingKind::DwgConverter: {
        const std::string error = drawing::DwgConverterError(value);
        return error.empty() ? CheckedValue{value, {}} : CheckedValue{{}, "\"" + value + "\" " + error};
    }
    case SettingKind::Text:
        break;
    }
    return {value, {}};
}

} // namespace sm::app
