// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/mdlWinReg.h"

#include "plugin/Attempt.h"
#include "ports/IRunObserver.h"
#include "settings/mdlUtilities.h"

namespace sm {

namespace {

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

bool RegWriteString(IRegistry& registry, RegistryRoot root, const std::string& keyPath, const std::string& valueName,
                    const std::string& value)
{
    const auto key = registry.CreateKey(root, keyPath);
    if (!key)
        return false;
    const std::string bytes = registry.Encode(value);
    const bool written =
        registry.SetValue(*key, valueName, RegistryType::String, bytes, static_cast<std::uint32_t>(bytes.size()));
    registry.CloseKey(*key);
    return written;
}

std::string StoredSetting(IRegistry& registry, const std::string& valueName)
{
    return RegReadString(registry, RegistryRoot::CurrentUser, kSettingsKey, valueName).value_or("");
}

bool StoreSetting(IRegistry& registry, const std::string& valueName, const std::string& text)
{
    return RegWriteString(registry, RegistryRoot::CurrentUser, kSettingsKey, valueName, text);
}

AcadVariant ReadSetting(Surroundings& surroundings, const std::string& valueName, const AcadVariant& defaultValue,
                        std::int32_t typeCode)
{
    const std::string text = StoredSetting(surroundings.registry, valueName);
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
    if (!StoreSetting(surroundings.registry, valueName,
                      text != nullptr ? *text : BoolToText(surroundings.locale, value)))
        surroundings.observer.CarriedPast(kWriteSettingRoutine, "the setting " + valueName + " could not be stored");
}

std::string ReadTextSetting(Surroundings& surroundings, const Setting& setting)
{
    return std::get<std::string>(ReadSetting(surroundings, setting.name, DefaultText(setting), kSettingText));
}

bool ReadBooleanSetting(Surroundings& surroundings, const Setting& setting)
{
    return std::get<bool>(
        ReadSetting(surroundings, setting.name, std::get<bool>(setting.defaultValue), kSettingBoolean));
}

std::int32_t ReadIntegerSetting(Surroundings& surroundings, const Setting& setting)
{
    return std::get<std::int32_t>(ReadSetting(surroundings, setting.name, WholeDefault(setting), kSettingInteger));
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
