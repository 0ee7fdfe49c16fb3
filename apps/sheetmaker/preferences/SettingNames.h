// SPDX-License-Identifier: GPL-3.0-or-later
// The per-user settings as "get", "set" and "list" name them and take their values.
#pragma once

#include "settings/SettingTable.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::app {

std::vector<std::string> SettingNameList();
/// Letter case aside; null when there is none.
const Setting* FindSetting(const std::string& name);

/// What is stored for a value as the user typed it.
struct CheckedValue {
    std::optional<std::string> stored;
    std::string error; ///< why it was refused, as the end of a sentence about the setting
};

/// Switches take 1, 0, yes, no, on, off, true and false. Empty text is accepted everywhere: it stands for the default.
/// `jobOptionNames` are those installed.
CheckedValue CheckValue(const Setting& setting, const std::string& value,
                        const std::vector<std::string>& jobOptionNames);

} // namespace sm::app
