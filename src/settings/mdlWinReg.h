// SPDX-License-Identifier: GPL-3.0-or-later
// The registry settings store. Failing registry calls are passed over: a missing value reads as its default; a failed
// write is lost, and the observer is told. Nothing here throws.
#pragma once

#include "ports/IRegistry.h"
#include "ports/RegistryKeys.h"
#include "ports/Surroundings.h"
#include "ports/Variant.h"
#include "settings/SettingTable.h"

#include <optional>
#include <string>

namespace sm {

/// Type codes of `ReadSetting`; any other code behaves as text.
inline constexpr std::int32_t kSettingText = 0;
inline constexpr std::int32_t kSettingBoolean = 1;
inline constexpr std::int32_t kSettingInteger = 2;

/// Text of a string value, cut at its first NUL; nothing when the key or value is missing or isn't a string.
/// The key stays open, as the suite's other readers leave it.
std::optional<std::string> RegReadString(IRegistry& registry, RegistryRoot root, const std::string& keyPath,
                                         const std::string& valueName);
/// False when the registry didn't take the value.
bool RegWriteString(IRegistry& registry, RegistryRoot root, const std::string& keyPath, const std::string& valueName,
                    const std::string& value);

/// Per-user setting as text, Boolean or integer by `typeCode`; `defaultValue` unchanged when absent or empty.
AcadVariant ReadSetting(Surroundings& surroundings, const std::string& valueName, const AcadVariant& defaultValue,
                        std::int32_t typeCode);
/// The routine that the observer hears of when a user's setting was lost.
inline constexpr const char* kWriteSettingRoutine = "WriteSetting";
void WriteSetting(Surroundings& surroundings, const std::string& valueName, const AcadVariant& value);

// The same of a setting of the table, whose default it is, with the result's type fixed. An integer may be read from a
// switch; text from every kind; a Boolean from a switch alone.
std::string ReadTextSetting(Surroundings& surroundings, const Setting& setting);
bool ReadBooleanSetting(Surroundings& surroundings, const Setting& setting);
std::int32_t ReadIntegerSetting(Surroundings& surroundings, const Setting& setting);

/// The text that is stored for a user's setting; empty when its default is in force.
std::string StoredSetting(IRegistry& registry, const std::string& valueName);
bool StoreSetting(IRegistry& registry, const std::string& valueName, const std::string& text);

std::string HelpFilePath(Surroundings& surroundings);       ///< machine-wide "HelpFile"
std::string SettingsFolderPath(Surroundings& surroundings); ///< machine-wide "SettingsFolder"
std::string ProductVersion(Surroundings& surroundings);     ///< machine-wide "Version"

/// The CAD host's install facts of the current release; all text, empty when absent.
struct AcadInstallInfo {
    std::string ReleaseKey, ProductKey, AcadLocation, Language, LocaleID, ProductID, ProductName, Release;
    friend bool operator==(const AcadInstallInfo&, const AcadInstallInfo&) = default;
};

/// The names of the registry keys of the host release and product in use; empty when absent.
struct AcadProductKey {
    std::string ReleaseKey, ProductKey;
};

/// Follows the host's "CurVer" chain, per user for release 16 and machine-wide for the others. `driverVersion` here and
/// below is the text of the driver detection: "15", "15+", "16" or empty.
AcadProductKey ResolveAcadProductKey(Surroundings& surroundings, const std::string& driverVersion);

/// Settings kept per host release; `defaultValue` when absent or empty.
std::string ReadReleaseSetting(Surroundings& surroundings, const std::string& driverVersion,
                               const std::string& valueName, const std::string& defaultValue);
void WriteReleaseSetting(Surroundings& surroundings, const std::string& driverVersion, const std::string& valueName,
                         const std::string& value);
AcadInstallInfo ReadAcadInstallInfo(Surroundings& surroundings, const std::string& driverVersion);

} // namespace sm
