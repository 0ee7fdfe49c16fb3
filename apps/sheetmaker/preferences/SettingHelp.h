// SPDX-License-Identifier: GPL-3.0-or-later
// What "help SETTING" says.
#pragma once

#include "settings/SettingTable.h"

#include <string>

namespace sm::app {

/// What the setting is for: a sentence or two.
std::string SettingMeaning(const Setting& setting);

/// What it takes: "1 or 0", "0 display, 1 extents", "a number from 0 up".
std::string SettingValues(const Setting& setting);

/// Name, meaning, values and default, as lines.
std::string SettingHelp(const Setting& setting);

} // namespace sm::app
