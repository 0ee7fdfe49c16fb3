// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/GeneralSettingsIO.h"

#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

namespace sm {

namespace {

struct TransferValue {
    const Setting& setting;
    VariantBool TransferFlags::*flag;
};

constexpr TransferValue kTransferValues[] = {
    {SettingNamed("TransferTextHlinks"), &TransferFlags::TransferTextHlinks},
    {SettingNamed("TransferDrawingHlinks"), &TransferFlags::TransferDrawingHlinks},
    {SettingNamed("TransferBlockHlinks"), &TransferFlags::TransferBlockHlinks},
    {SettingNamed("TransferVPortHlinks"), &TransferFlags::TransferVPortHlinks},
    {SettingNamed("TransferAttributes"), &TransferFlags::TransferAttributes},
};

struct GeneralValue {
    const Setting& setting;
    std::variant<bool GeneralSettings::*, std::int32_t GeneralSettings::*, std::string GeneralSettings::*> member;
};

constexpr GeneralValue kGeneralValues[] = {
    {SettingNamed("PromptForFileName"), &GeneralSettings::PromptForFileName},
    {SettingNamed("DeletePs"), &GeneralSettings::DeletePs},
    {SettingNamed("OpenInViewer"), &GeneralSettings::OpenInViewer},
    {SettingNamed("WhatToPlot"), &GeneralSettings::WhatToPlot},
    {SettingNamed("Optimization"), &GeneralSettings::Optimization},
    {SettingNamed("JobOptionsFile"), &GeneralSettings::JobOptionsFile},
};

void Read(Surroundings& surroundings, const Setting& setting, bool& value)
{
    value = ReadBooleanSetting(surroundings, setting);
}

void Read(Surroundings& surroundings, const Setting& setting, std::int32_t& value)
{
    value = ReadIntegerSetting(surroundings, setting);
}

void Read(Surroundings& surroundings, const Setting& setting, std::string& value)
{
    value = ReadTextSetting(surroundings, setting);
}

} // namespace

TransferFlags ReadTransferFlags(Surroundings& surroundings)
{
    TransferFlags flags;
    for (const TransferValue& value : kTransferValues)
        flags.*value.flag = ReadBooleanSetting(surroundings, value.setting) ? kTrue : kFalse;
    return flags;
}

void WriteTransferFlags(Surroundings& surroundings, const TransferFlags& flags)
{
    for (const TransferValue& value : kTransferValues)
        WriteSetting(surroundings, value.setting.name, BoolToBit(flags.*value.flag) == 1);
}

GeneralSettings ReadGeneralSettings(Surroundings& surroundings)
{
    GeneralSettings settings;
    settings.Transfer = ReadTransferFlags(surroundings);
    for (const GeneralValue& value : kGeneralValues)
        std::visit([&](auto member) { Read(surroundings, value.setting, settings.*member); }, value.member);
    return settings;
}

void WriteGeneralSettings(Surroundings& surroundings, const GeneralSettings& settings)
{
    WriteTransferFlags(surroundings, settings.Transfer);
    for (const GeneralValue& value : kGeneralValues)
        std::visit([&](auto member) { WriteSetting(surroundings, value.setting.name, settings.*member); },
                   value.member);
}

StampTexts ReadStampList(Surroundings& surroundings)
{
    StampTexts stamps;
    stamps[0] = kNoStampText;
    for (std::size_t i = 1; i < stamps.size(); ++i)
        stamps[i] = ReadTextSetting(surroundings, StampTextSetting(i));
    return stamps;
}

void WriteStampList(Surroundings& surroundings, const StampTexts& stamps)
{
    for (std::size_t i = 1; i < stamps.size(); ++i)
        WriteSetting(surroundings, StampTextSetting(i).name, stamps[i]);
}

} // namespace sm
