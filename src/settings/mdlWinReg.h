// The registry settings store. Failing registry calls are passed over: a missing value reads as its default, a failed
// write is lost. Nothing here throws.
#pragma once

#include "ports/IRegistry.h"
#include "ports/Surroundings.h"
#include "ports/Variant.h"

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
void RegWriteString(IRegistry& registry, RegistryRoot root, const std::string& keyPath, const std::string& valueName,
                    const std::string& value);

/// Per-user setting as text, Boolean or integer by `typeCode`; `defaultValue` unchanged when absent or empty.
AcadVariant ReadSetting(Surroundings& surroundings, const std::string& valueName, const AcadVariant& defaultValue,
                        std::int32_t typeCode);
void WriteSetting(Surroundings& surroundings, const std::string& valueName, const AcadVariant& value);

// The same with the result's type fixed.
std::string ReadTextSetting(Surroundings& surroundings, const std::string& valueName, const std::string& defaultValue);
bool ReadBooleanSetting(Surroundings& surroundings, const std::string& valueName, bool defaultValue);
std::int32_t ReadIntegerSetting(Surroundings& surroundings, const std::string& valueName, std::int32_t defaultValue);

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
