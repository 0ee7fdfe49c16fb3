// SPDX-License-Identifier: GPL-3.0-or-later
// What the numbers mean that the automation model, the drawings' files and records and the stored settings share.
#pragma once

#include <cstddef>
#include <cstdint>

namespace sm {

inline constexpr double kMillimetresPerInch = 25.4;

// They stay numbers where they are handed on, since files and records may hold others; so they convert to numbers.

/// Which part of a layout is plotted; group 74 of a PLOTSETTINGS object has the same numbers.
enum PlotType : std::int32_t {
    kPlotDisplay = 0,
    kPlotExtents = 1,
    kPlotLimits = 2,
    kPlotView = 3,
    kPlotWindow = 4,
    kPlotLayout = 5
};

/// Where a layout's page setup is taken from: the layout itself, the drawing's record "Plots", the user's settings.
/// The record "PltSel" holds the number.
enum PageSetupSource : std::int32_t { kPageSetupNative = 0, kPageSetupCustom = 1, kPageSetupGlobal = 2 };

/// The setting of this name: the active layout, or all layouts but the model.
enum WhatToPlot : std::int32_t { kPlotCurrentTab = 0, kPlotAllTabs = 1 };

/// The setting "Optimization": 1200 or 600 dots per inch.
enum LineQuality : std::int32_t { kLinesForPrint = 0, kLinesForDraft = 1 };

/// The unit of a plot scale; group 72 of a PLOTSETTINGS object has the same numbers.
enum PaperUnits : std::int32_t { kPaperInches = 0, kPaperMillimeters = 1, kPaperPixels = 2 };

/// A number with the name that dialogs, log lines and command line words are made of.
struct NamedNumber {
    std::int32_t number;
    const char* name;
};

inline constexpr NamedNumber kPlotTypes[] = {{kPlotDisplay, "Display"}, {kPlotExtents, "Extents"},
                                             {kPlotLimits, "Limits"},   {kPlotView, "View"},
                                             {kPlotWindow, "Window"},   {kPlotLayout, "Layout"}};
inline constexpr NamedNumber kPageSetupSources[] = {
    {kPageSetupNative, "Native"}, {kPageSetupCustom, "Custom"}, {kPageSetupGlobal, "Global"}};
inline constexpr NamedNumber kWhatToPlot[] = {{kPlotCurrentTab, "Current Tab"}, {kPlotAllTabs, "All Layout Tabs"}};
inline constexpr NamedNumber kLineQualities[] = {{kLinesForPrint, "Print"}, {kLinesForDraft, "Draft"}};
inline constexpr NamedNumber kPaperUnits[] = {
    {kPaperInches, "Inches"}, {kPaperMillimeters, "Millimeters"}, {kPaperPixels, "Pixels"}};

/// Empty for a number that has no name.
template <std::size_t count> constexpr const char* NameOf(const NamedNumber (&table)[count], std::int32_t number)
{
    for (const NamedNumber& row : table)
        if (row.number == number)
            return row.name;
    return "";
}

/// Dots per inch; every number but that of print quality stands for draft.
constexpr std::int32_t ResolutionOf(std::int32_t lineQuality)
{
    return lineQuality == kLinesForPrint ? 1200 : 600;
}

} // namespace sm
