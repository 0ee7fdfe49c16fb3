// Where a user's own files lie, by the XDG base directory rules.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace sm::base {

/// A variable's value by its name; nothing when it isn't set.
using VariableLookup = std::function<std::optional<std::string>(const std::string& name)>;

/// The user's home folder: $HOME, without it that of the account, and the root folder when there is neither.
std::filesystem::path HomeFolder(const VariableLookup& variables);

/// The folder that `variable` names (a relative path is ignored, as the XDG base directory rules say), else `belowHome`
/// in the home folder.
std::filesystem::path UserFolder(const VariableLookup& variables, const std::string& variable,
                                 const std::string& belowHome);

/// Where this program keeps the user's settings and fonts: `sheetmaker-pdf` in $XDG_CONFIG_HOME or ~/.config.
std::filesystem::path SettingsFolder(const VariableLookup& variables);

/// The variables of this process.
std::optional<std::string> Variable(const std::string& name);

} // namespace sm::base
