#include "preferences/SettingNames.h"

#include "commandline/Suggest.h"

#include <limits>

namespace sm::app {
namespace {

constexpr double kAny = std::numeric_limits<double>::max();
constexpr double kLargest = 2147483647;

constexpr SettingName Switch(const char* name, const char* defaultValue)
{
    return {name, SettingKind::Switch, defaultValue, 0, 1};
}

constexpr SettingName Whole(const char* name, const char* defaultValue, double most)
{
    return {name, SettingKind::WholeNumber, defaultValue, 0, most};
}

constexpr SettingName Number(const char* name, const char* defaultValue, double least = -kAny)
{
    return {name, SettingKind::Number, defaultValue, least, kAny};
}

constexpr SettingName Text(const char* name, const char* defaultValue)
{
    return {name, SettingKind::Text, defaultValue, 0, 0};
}

constexpr SettingName kSettings[] = {
    Switch("PromptForFileName", "1"),
    Switch("DeletePs", "1"),
    Switch("OpenInViewer", "1"),
    Whole("WhatToPlot", "0", 1),
    Whole("Optimization", "0", 1),
    {"JobOptionsFile", SettingKind::JobOptions, "Graphics [600 dpi]", 0, 0},
    Switch("TransferTextHlinks", "0"),
    Switch("TransferDrawingHlinks", "0"),
    Switch("TransferBlockHlinks", "0"),
    Switch("TransferVPortHlinks", "0"),
    Switch("TransferAttributes", "0"),
    Switch("BlockAttribRemindAgain", "1"),
    Switch("NoShowAcad2000PlotterMsg", "0"),
    Text("Stamp1", "DRAFT PRINT"),
    Text("Stamp2", "FOR REVIEW"),
    Text("Stamp3", "DO NOT BUILD TO PRINT"),
    Text("Stamp4", "PROPRIETARY - DO NOT DISTRIBUTE"),
    Text("Stamp5", "EMAILED ON &[Date]"),
    Text("Stamp6", "PRINTED ON &[Date]"),
    Text("Stamp7", "PRELIMINARY - &[User] - &[Date]"),
    Text("Stamp8", "FOR BID ONLY - &[Date]"),
    Text("Stamp9", "ENGINEERING PRE-RELEASE - &[Date]"),
    Text("Stamp10", "&[Path] - &[Date]"),
    Text("Stamp11", "STAMP 11"),
    Text("Stamp12", "STAMP 12"),
    Text("Stamp13", "STAMP 13"),
    Text("Stamp14", "STAMP 14"),
    Text("Stamp15", "STAMP 15"),
    Text("CanonicalMediaName", "ANSI_A_(11.00_x_8.50_Inches)"),
    Number("PaperWidth", "279.4", 0),
    Number("PaperHeight", "215.9", 0),
    Whole("PlotRotation", "0", 3),
    Whole("PlotType", "1", 5),
    Switch("CenterPlot", "1"),
    Number("PlotOriginX", "0"),
    Number("PlotOriginY", "0"),
    Switch("UseStandardScale", "1"),
    Whole("StandardScale", "0", kLargest),
    Number("ScaleNumer", "1", 0),
    Number("ScaleDenom", "1", 0),
    Whole("PaperUnits", "0", 2),
    Switch("PlotWithPlotStyles", "1"),
    Text("StyleSheet", ""),
    Switch("ShowPlotStyles", "1"),
    Switch("PlotHidden", "0"),
    Switch("PlotViewportsFirst", "1"),
    Switch("PlotWithLineWeights", "1"),
    Switch("ScaleLineWeights", "0"),
    Switch("PlotViewportBorders", "0"),
    Number("WinLowerLeftX", "0"),
    Number("WinLowerLeftY", "0"),
    Number("WinUpperRightX", "0"),
    Number("WinUpperRightY", "0"),
    Text("ViewToPlot", ""),
    {"DwgConverter", SettingKind::DwgConverter, "", 0, 0},
};

} // namespace

std::span<const SettingName> AllSettings()
{
    return kSettings;
}

std::vector<std::string> SettingNameList()
{
    std::vector<std::string> names;
    for (const SettingName& setting : kSettings)
        names.emplace_back(setting.name);
    return names;
}

const SettingName* FindSetting(const std::string& name)
{
    const std::string found = FindName(name, SettingNameList());
    for (const SettingName& setting : kSettings)
        if (found == setting.name)
            return &setting;
    return nullptr;
}

} // namespace sm::app
