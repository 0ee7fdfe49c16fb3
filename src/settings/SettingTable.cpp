// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingTable.h"

#include "settings/mdlUtilities.h"

#include <algorithm>
#include <iterator>

namespace sm {

namespace {

constexpr std::size_t kFirstStampText = static_cast<std::size_t>(&SettingNamed("Stamp1") - std::begin(kSettings));
static_assert(&kSettings[kFirstStampText + kStampTextCount - 1] == &SettingNamed("Stamp15"));

} // namespace

std::string DefaultText(const Setting& setting)
{
    if (const char* const* text = std::get_if<const char*>(&setting.defaultValue))
        return *text;
    if (const double* number = std::get_if<double>(&setting.defaultValue))
        return NumberText(*number);
    return std::to_string(WholeDefault(setting));
}

const Setting& StampTextSetting(std::size_t number)
{
    return kSettings[kFirstStampText + std::clamp<std::size_t>(number, 1, kStampTextCount) - 1];
}

} // namespace sm
