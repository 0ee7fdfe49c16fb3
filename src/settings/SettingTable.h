// SPDX-License-Identifier: GPL-3.0-or-later
// The per-user settings, each declared here once: the dialog, the command line with its help, "get", "set" and "list",
// a run's overlay and the records' defaults all read this table.
#pragma once

#include "settings/PublishWith.h"

#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace sm {

/// What a setting's text may be. Switches are "1" and "0".
enum class SettingKind { Switch, WholeNumber, Number, Text, JobOptions, DwgConverter };

/// Where a setting counts.
enum class SettingUse {
    Conversion,      ///< what the front end reads before a conversion
    Transfer,        ///< which links and attributes go into the PDF
    Answer,          ///< a question that the user doesn't want to be asked again
    StampText,       ///< the list of stamp texts
    GlobalPageSetup, ///< the page setup for drawings that have no other
    Component,       ///< what the component of Windows reads, not the program of the command line
    ThisProgram      ///< known to the command line's program alone
};

struct Setting {
    const char* name; ///< of the registry value
    SettingKind kind;
    SettingUse use;
    std::variant<bool, std::int32_t, double, const char*> defaultValue;
    const char* caption = "";   ///< of the control that shows it; empty when a frame or label has its name
    double least = 0, most = 0; ///< of the two kinds of number
    std::span<const NamedNumber> choices = {};
};

inline constexpr const char* kNoCaption = "";
inline constexpr double kAnyNumber = std::numeric_limits<double>::max();

constexpr Setting SwitchSetting(const char* name, SettingUse use, bool isOn, const char* caption = kNoCaption)
{
    return {name, SettingKind::Switch, use, isOn, caption};
}

/// A whole number from 0 to `most`.
constexpr Setting WholeSetting(const char* name, SettingUse use, std::int32_t number, std::int32_t most)
{
    return {name, SettingKind::WholeNumber, use, number, kNoCaption, 0, static_cast<double>(most)};
}

/// One of the numbers from 0 up that have a name.
constexpr Setting ChoiceSetting(const char* name, SettingUse use, std::int32_t number,
                                std::span<const NamedNumber> choices)
{
    return {name,   SettingKind::WholeNumber, use, number, kNoCaption, 0, static_cast<double>(choices.back().number),
            choices};
}

constexpr Setting NumberSetting(const char* name, double number, double least = -kAnyNumber)
{
    return {name, SettingKind::Number, SettingUse::GlobalPageSetup, number, kNoCaption, least, kAnyNumber};
}

constexpr Setting TextSetting(const char* name, SettingUse use, const char* text)
{
    return {name, SettingKind::Text, use, text};
}

/// In the order in which they are listed; page setup lengths in millimetres, plot window in drawing units.
inline constexpr Setting kSettings[] = {
    SwitchSetting("PromptForFileName", SettingUse::Conversion, true, "Prompt For File Name"),
    SwitchSetting("DeletePs", SettingUse::Conversion, true, "Delete Temporary Postscript Files"),
    SwitchSetting("OpenInViewer", SettingUse::Conversion, true, "View Results in PDF Reader"),
    ChoiceSetting("WhatToPlot", SettingUse::Conversion, kPlotCurrentTab, kWhatToPlot),
    ChoiceSetting("Optimization", SettingUse::Conversion, kLinesForPrint, kLineQualities),
    {"JobOptionsFile", SettingKind::JobOptions, SettingUse::Conversion, "Graphics [600 dpi]"},
    SwitchSetting("TransferTextHlinks", SettingUse::Transfer, false, "Text"),
    SwitchSetting("TransferDrawingHlinks", SettingUse::Transfer, false, "Drawing Entities"),
    SwitchSetting("TransferBlockHlinks", SettingUse::Transfer, false, "Blocks and XRefs"),
    SwitchSetting("TransferVPortHlinks", SettingUse::Transfer, false, "Viewports"),
    SwitchSetting("TransferAttributes", SettingUse::Transfer, false, "Transfer Block Attribute Data"),
    SwitchSetting("BlockAttribRemindAgain", SettingUse::Answer, true),
    SwitchSetting("NoShowAcad2000PlotterMsg", SettingUse::Answer, false),
    TextSetting("Stamp1", SettingUse::StampText, "DRAFT PRINT"),
    TextSetting("Stamp2", SettingUse::StampText, "FOR REVIEW"),
    TextSetting("Stamp3", SettingUse::StampText, "DO NOT BUILD TO PRINT"),
    TextSetting("Stamp4", SettingUse::StampText, "PROPRIETARY - DO NOT DISTRIBUTE"),
    TextSetting("Stamp5", SettingUse::StampText, "EMAILED ON &[Date]"),
    TextSetting("Stamp6", SettingUse::StampText, "PRINTED ON &[Date]"),
    TextSetting("Stamp7", SettingUse::StampText, "PRELIMINARY - &[User] - &[Date]"),
    TextSetting("Stamp8", SettingUse::StampText, "FOR BID ONLY - &[Date]"),
    TextSetting("Stamp9", SettingUse::StampText, "ENGINEERING PRE-RELEASE - &[Date]"),
    TextSetting("Stamp10", SettingUse::StampText, "&[Path] - &[Date]"),
    TextSetting("Stamp11", SettingUse::StampText, "STAMP 11"),
    TextSetting("Stamp12", SettingUse::StampText, "STAMP 12"),
    TextSetting("Stamp13", SettingUse::StampText, "STAMP 13"),
    TextSetting("Stamp14", SettingUse::StampText, "STAMP 14"),
    TextSetting("Stamp15", SettingUse::StampText, "STAMP 15"),
    TextSetting("CanonicalMediaName", SettingUse::GlobalPageSetup, "ANSI_A_(11.00_x_8.50_Inches)"),
    NumberSetting("PaperWidth", 279.4, 0),
    NumberSetting("PaperHeight", 215.9, 0),
    WholeSetting("PlotRotation", SettingUse::GlobalPageSetup, 0, 3),
    ChoiceSetting("PlotType", SettingUse::GlobalPageSetup, kPlotExtents, kPlotTypes),
    SwitchSetting("CenterPlot", SettingUse::GlobalPageSetup, true, "Center The Plot"),
    NumberSetting("PlotOriginX", 0),
    NumberSetting("PlotOriginY", 0),
    SwitchSetting("UseStandardScale", SettingUse::GlobalPageSetup, true),
    WholeSetting("StandardScale", SettingUse::GlobalPageSetup, 0, std::numeric_limits<std::int32_t>::max()),
    NumberSetting("ScaleNumer", 1, 0),
    NumberSetting("ScaleDenom", 1, 0),
    ChoiceSetting("PaperUnits", SettingUse::GlobalPageSetup, kPaperInches, kPaperUnits),
    SwitchSetting("PlotWithPlotStyles", SettingUse::GlobalPageSetup, true, "Plot With Plot Styles"),
    TextSetting("StyleSheet", SettingUse::GlobalPageSetup, ""),
    SwitchSetting("ShowPlotStyles", SettingUse::GlobalPageSetup, true),
    SwitchSetting("PlotHidden", SettingUse::GlobalPageSetup, false, "Hide Objects"),
    SwitchSetting("PlotViewportsFirst", SettingUse::GlobalPageSetup, true, "Plot Paperspace Last"),
    SwitchSetting("PlotWithLineWeights", SettingUse::GlobalPageSetup, true, "Plot Object Lineweights"),
    SwitchSetting("ScaleLineWeights", SettingUse::GlobalPageSetup, false, "Scale Lineweights"),
    SwitchSetting("PlotViewportBorders", SettingUse::GlobalPageSetup, false),
    NumberSetting("WinLowerLeftX", 0),
    NumberSetting("WinLowerLeftY", 0),
    NumberSetting("WinUpperRightX", 0),
    NumberSetting("WinUpperRightY", 0),
    TextSetting("ViewToPlot", SettingUse::GlobalPageSetup, ""),
    ChoiceSetting("PublishWith", SettingUse::Component, kPublishWithEither, kPublishWith),
    {"DwgConverter", SettingKind::DwgConverter, SettingUse::ThisProgram, ""},
    WholeSetting("AttachmentLimit", SettingUse::ThisProgram, 250, 1'000'000), // mebibytes of one file
};

/// The setting of a name that is known when compiling: any other doesn't compile.
consteval const Setting& SettingNamed(std::string_view name)
{
    for (const Setting& setting : kSettings)
        if (name == setting.name)
            return setting;
    throw "there is no setting of this name";
}

// The defaults by their kinds. A switch also is 1 or 0.
consteval bool DefaultSwitch(std::string_view name)
{
    return std::get<bool>(SettingNamed(name).defaultValue);
}
consteval double DefaultNumber(std::string_view name)
{
    return std::get<double>(SettingNamed(name).defaultValue);
}
consteval const char* DefaultName(std::string_view name)
{
    return std::get<const char*>(SettingNamed(name).defaultValue);
}
constexpr std::int32_t WholeDefault(const Setting& setting)
{
    const auto& value = setting.defaultValue;
    return std::holds_alternative<bool>(value) ? std::int32_t{std::get<bool>(value)} : std::get<std::int32_t>(value);
}
consteval std::int32_t DefaultWhole(std::string_view name)
{
    return WholeDefault(SettingNamed(name));
}
/// As it is stored.
std::string DefaultText(const Setting& setting);

/// Stamp texts are numbered from 1 to 15.
inline constexpr std::size_t kStampTextCount = 15;
const Setting& StampTextSetting(std::size_t number);

/// Settings kept for each release of the host, below a key of its own: what was in force before a plot changed it.
inline constexpr const char* kSavedProfile = "Profile";
inline constexpr const char* kSavedPlotterFolder = "PrinterConfigPath";

} // namespace sm
