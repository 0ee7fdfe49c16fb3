#include "settings/mdlWinReg.h"

#include "plugin/Attempt.h"
#include "settings/mdlUtilities.h"

namespace sm {

namespace {

constexpr const char* kProductKey = "Software\\Tarnwick Software\\Sheetmaker PDF";
constexpr const char* kSettingsKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD";

std::string MachineFact(Surroundings& surroundings, const char* keyPath, const char* valueName)
{
    return RegReadString(surroundings.registry, RegistryRoot::LocalMachine, keyPath, valueName).value_or("");
}

std::optional<std::string> TextOfValue(IRegistry& registry, RegistryKey key, const std::string& valueName)
{
    const auto info = registry.QueryInfo(key, valueName);
    if (!info || info->type != RegistryType::String)
        return std::nullopt;
    std::string buffer(info->size, ' ');
    if (!registry.QueryValue(key, valueName, buffer))
        return std::nullopt;
    return registry.Decode(buffer.substr(0, buffer.find('\0')));
}

} // namespace

std::optional<std::string> RegReadString(IRegistry& registry, RegistryRoot root, const std::string& keyPath,
                                         const std::string& valueName)
{
    const auto read = [&]() -> std::optional<std::string> {
        const auto key = registry.OpenKey(root, keyPath);
        return key ? TextOfValue(registry, *key, valueName) : std::nullopt;
    };
    return GiveUp(read, [](const std::string&) { return std::nullopt; });
}

void RegWriteString(IRegistry& registry, RegistryRoot root, const std::string& keyPath, const std::string& valueName,
                    const std::string& value)
{
    const auto key = registry.CreateKey(root, keyPath);
    if (!key)
        return;
    const std::string bytes = registry.Encode(value);
    registry.SetValue(*key, valueName, RegistryType::String, bytes, static_cast<std::uint32_t>(bytes.size()));
    registry.CloseKey(*key);
}

AcadVariant ReadSetting(Surroundings& surroundings, const std::string& valueName, const AcadVariant& defaultValue,
                        std::int32_t typeCode)
{
    const std::string text =
        RegReadString(surroundings.registry, RegistryRoot::CurrentUser, kSettingsKey, valueName).value_or("");
    if (text.empty())
        return defaultValue;
    if (typeCode == kSettingBoolean)
        return Val(text) != 0;
    if (typeCode == kSettingInteger)
        return RoundToInteger(Val(text));
    return text;
}

void WriteSetting(Surroundings& surroundings, const std::string& valueName, const AcadVariant& value)
{
    const auto* text = std::get_if<std::string>(&value);
    RegWriteString(surroundings.registry, RegistryRoot::CurrentUser, kSettingsKey, valueName,
                   text != nullptr ? *text : BoolToText(surroundings.locale, value));
}

std::string ReadTextSetting(Surroundings& surroundings, const std::string& valueName, const std::string& defaultValue)
{
    return std::get<std::string>(ReadSetting(surroundings, valueName, defaultValue, kSettingText));
}

bool ReadBooleanSetting(Surroundings& surroundings, const std::string& valueName, bool defaultValue)
{
    return std::get<bool>(ReadSetting(surroundings, valueName, defaultValue, kSettingBoolean));
}

std::int32_t ReadIntegerSetting(Surroundings& surroundings, const std::string& valueName, std::int32_t defaultValue)
{
    return std::get<std::int32_t>(ReadSetting(surroundings, valueName, defaultValue, kSettingInteger));
}

std::string HelpFilePath(Surroundings& surroundings)
{
    return MachineFact(surroundings, kSettingsKey, "HelpFile");
}

std::string SettingsFolderPath(Surroundings& surroundings)
{
    return MachineFact(surroundings, kSettingsKey, "SettingsFolder");
}

std::string ProductVersion(Surroundings& surroundings)
{
    return MachineFact(surroundings, kProductKey, "Version");
}

} // namespace sm
