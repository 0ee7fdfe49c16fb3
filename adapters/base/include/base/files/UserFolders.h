// SPDX-License-Identifier: GPL-3.0-or-later
// Where a user's own files lie: by the XDG base directory rules, on Windows in the user's local application data.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace sm::base {

/// A variable's value by its name; nothing when it isn't set.
using VariableLookup = std::function<std::optional<std::string>(const std::string& name)>;

/// The user's home folder: $HOME, without it that of the account, and the root folder when there is neither; on Windows
/// %USERPROFILE%.
std::filesystem::path HomeFolder(const VariableLookup& variables);

/// The folder that `variable` names (a relative path is ignored, as the XDG base directory rules say), else `belowHome`
/// in the home folder.
std::filesystem::path UserFolder(const VariableLookup& variables, const std::string& variable,
                                 const std::string& belowHome);

/// Where this program keeps the user's settings and fonts: `sheetmaker-pdf` in $XDG_CONFIG_HOME or ~/.config; on
/// Windows in %LOCALAPPDATA%.
std::filesystem::path SettingsFolder(const VariableLookup& variables);

/// Where it keeps its log and what it must remember: `sheetmaker-pdf` in $XDG_STATE_HOME or ~/.local/state; on Windows
/// in %LOCALAPPDATA%.
std::filesystem::path StateFolder(const VariableLookup& variables);

/// Where font files lie on this system, the user's own folders first.
std::vector<std::filesystem::path> FontFolders(const VariableLookup& variables);

/// The variables of this process.
std::optional<std::string> Variable(const std::string& name);

} // namespace sm::base
