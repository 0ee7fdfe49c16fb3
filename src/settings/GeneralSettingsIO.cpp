#include "settings/GeneralSettingsIO.h"

#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

namespace sm {

namespace {

struct TransferValue {
    const char* name;
    VariantBool TransferFlags::*flag;
};

constexpr TransferValue kTransferValues[] = {
    {"TransferTextHlinks", &TransferFlags::TransferTextHlinks},
    {"TransferDrawingHlinks", &TransferFlags::TransferDrawingHlinks},
    {"TransferBlockHlinks", &TransferFlags::TransferBlockHlinks},
    {"TransferVPortHlinks", &TransferFlags::TransferVPortHlinks},
    {"TransferAttributes", &TransferFlags::TransferAttributes},
};

constexpr const char* kStampList[] = {
    "(NONE)",
    "DRAFT PRINT",
    "FOR REVIEW",
    "DO NOT BUILD TO PRINT",
    "PROPRIETARY - DO NOT DISTRIBUTE",
    "EMAILED ON &[Date]",
    "PRINTED ON &[Date]",
    "PRELIMINARY - &[User] - &[Date]",
    "FOR BID ONLY - &[Date]",
    "ENGINEERING PRE-RELEASE - &[Date]",
    "&[Path] - &[Date]",
    "STAMP 11",
    "STAMP 12",
    "STAMP 13",
    "STAMP 14",
    "STAMP 15",
};

std::string StampValueName(std::size_t index)
{
    return "Stamp" + std::to_string(index);
}

} // namespace

TransferFlags ReadTransferFlags(Surroundings& surroundings)
{
    TransferFlags flags;
    for (const TransferValue& value : kTransferValues)
        flags.*value.flag = ReadBooleanSetting(surroundings, value.name, false) ? kTrue : kFalse;
    return flags;
}

void WriteTransferFlags(Surroundings& surroundings, const TransferFlags& flags)
{
    for (const TransferValue& value : kTransferValues)
        WriteSetting(surroundings, value.name, BoolToBit(flags.*value.flag) == 1);
}

GeneralSettings ReadGeneralSettings(Surroundings& surroundings)
{
    GeneralSettings settings;
    settings.Transfer = ReadTransferFlags(surroundings);
    settings.PromptForFileName = ReadBooleanSetting(surroundings, "PromptForFileName", true);
    settings.DeletePs = ReadBooleanSetting(surroundings, "DeletePs", true);
    settings.OpenInViewer = ReadBooleanSetting(surroundings, "OpenInViewer", true);
    settings.WhatToPlot = ReadIntegerSetting(surroundings, "WhatToPlot", 0);
    settings.Optimization = ReadIntegerSetting(surroundings, "Optimization", 0);
    settings.JobOptionsFile = ReadTextSetting(surroundings, "JobOptionsFile", "Graphics [600 dpi]");
    return settings;
}

void WriteGeneralSettings(Surroundings& surroundings, const GeneralSettings& settings)
{
    WriteTransferFlags(surroundings, settings.Transfer);
    WriteSetting(surroundings, "PromptForFileName", settings.PromptForFileName);
    WriteSetting(surroundings, "DeletePs", settings.DeletePs);
    WriteSetting(surroundings, "OpenInViewer", settings.OpenInViewer);
    WriteSetting(surroundings, "WhatToPlot", settings.WhatToPlot);
    WriteSetting(surroundings, "Optimization", settings.Optimization);
    WriteSetting(surroundings, "JobOptionsFile", settings.JobOptionsFile);
}

std::array<std::string, 16> ReadStampList(Surroundings& surroundings)
{
    std::array<std::string, 16> stamps;
    stamps[0] = kStampList[0];
    for (std::size_t i = 1; i < stamps.size(); ++i)
        stamps[i] = ReadTextSetting(surroundings, StampValueName(i), kStampList[i]);
    return stamps;
}

void WriteStampList(Surroundings& surroundings, const std::array<std::string, 16>& stamps)
{
    for (std::size_t i = 1; i < stamps.size(); ++i)
        WriteSetting(surroundings, StampValueName(i), stamps[i]);
}

} // namespace sm
