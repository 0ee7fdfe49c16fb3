// The per-user settings by their value names.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sm::app {

/// The per-user key that holds the settings.
inline constexpr const char* kSettingsKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD";

enum class SettingKind { Switch, WholeNumber, Number, Text, JobOptions, DwgConverter };

struct SettingName {
    const char* name;
    SettingKind kind;
    const char* defaultValue;
    double least, most; ///< of the two kinds of number
};

/// In the order in which they are listed.
std::span<const SettingName> AllSettings();
std::vector<std::string> SettingNameList();
/// Letter case aside; null when there is none.
const SettingName* FindSetting(const std::string& name);

/// What is stored for a value as the user typed it.
struct CheckedValue {
    std::optional<std::string> stored;
    std::string error; ///< why it was refused, as the end of a sentence about the setting
};

/// Switches take 1, 0, yes, no, on, off, true and false. Empty text is accepted everywhere: it stands for the default.
/// `jobOptionNames` are those installed.
CheckedValue CheckValue(const SettingName& setting, const std::string& value,
                        const std::vector<std::string>& jobOptionNames);

} // namespace sm::app
