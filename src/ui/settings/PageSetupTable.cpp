// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/PageSetupTable.h"

#include "settings/SettingTable.h"

namespace sm {
namespace {

using enum ControlKind;

ControlRow Governed(ControlKind kind, const char* name, const char* caption, ControlPlace place, const char* parent)
{
    return ControlRow(kind, name, caption, place, parent).Tag(kAcadPageSetupTag);
}

/// Position less one is the host's number of the standard scale; the spacing is that of the host's own list.
std::vector<std::string> ScaleItems()
{
    return {"Custom",     "Scale to Fit", "1/128\"= 1'", "1/64\"= 1'", "1/32\"= 1'", "1/16\"= 1'", "3/32\"= 1'",
            "1/8\" = 1'", "3/16\"= 1'",   "1/4\" = 1'",  "3/8\" = 1'", "1/2\" = 1'", "3/4\" = 1'", "1\"= 1'",
            "3\"= 1'",    "6\"= 1'",      "1'= 1'",      "1:1",        "1:2",        "1:4",        "1:8",
            "1:10",       "1:16",         "1:20",        "1:30",       "1:40",       "1:50",       "1:100",
            "2:1",        "4:1",          "8:1",         "10:1",       "100:1"};
}

void AddPaperSize(FormTable& table, const char* parent, bool onItsOwn)
{
    const char* const frame = "fmePaperSize";
    AddRows(table, {ControlRow(Frame, frame, "Paper Size and Orientation", {7, 22, 178, 58}, parent),
                    Governed(Label, "lblPaperSize", "Paper Size:", {6, 11, 60, 8}, frame),
                    Governed(ComboBox, "cmbPaperSize", "", {6, 21, 166, 12}, frame),
                    ControlRow(ListView, "lstPaperSize", "", {}, frame)
                        .Columns({{"Title", 100}, {"Width", 40}, {onItsOwn ? "Hieght" : "Height", 40}})
                        .Hidden(),
                    Governed(OptionButton, "optPortrait", "Portrait", {6, 40, 60, 10}, frame),
                    Governed(OptionButton, "optLandscape", "Landscape", {76, 40, 60, 10}, frame)});
}

void AddPlotArea(FormTable& table, const char* parent, bool onItsOwn)
{
    const char* const frame = "fmePlotArea";
    AddRows(table, {ControlRow(Frame, frame, "Plot Area", {7, 84, 178, 84}, parent),
                    Governed(OptionButton, "optDisplay", NameOf(kPlotTypes, kPlotDisplay), {6, 12, 80, 10}, frame),
                    Governed(OptionButton, "optExtents", NameOf(kPlotTypes, kPlotExtents), {6, 25, 80, 10}, frame),
                    Governed(OptionButton, "optLayout", onItsOwn ? "Layout/ Limits" : NameOf(kPlotTypes, kPlotLayout),
                             {6, 38, 80, 10}, frame),
                    Governed(OptionButton, "optView", NameOf(kPlotTypes, kPlotView), {6, 51, 48, 10}, frame),
                    Governed(ComboBox, "cmbView", "", {58, 50, 114, 12}, frame)});
    if (onItsOwn)
        table.push_back(Governed(TextBox, "txtView", "", {58, 50, 114, 12}, frame).Hidden());
    table.push_back(Governed(OptionButton, "optWindow", NameOf(kPlotTypes, kPlotWindow), {6, 67, 48, 10}, frame));
    if (!onItsOwn)
        table.push_back(Governed(CommandButton, "btnWindowPoints", "Window >", {58, 65, 60, 14}, frame));
}

void AddPlotStyle(FormTable& table, const char* parent, bool onItsOwn)
{
    const char* const frame = "fmePlotStyle";
    AddRows(table, {ControlRow(Frame, frame, "Plot Style Table (Pen Assignments)", {7, 172, 178, 32}, parent),
                    Governed(Label, "lblPlotStyleName", "Name:", {6, 14, 32, 8}, frame),
                    Governed(ComboBox, "cmbPlotStyle", "", {42, 12, 130, 12}, frame)});
    if (onItsOwn)
        table.push_back(Governed(TextBox, "txtPlotStyle", "", {42, 12, 130, 12}, frame).Hidden());
}

void AddPlotScale(FormTable& table, const char* parent)
{
    const char* const frame = "fmePlotScale";
    AddRows(table,
            {ControlRow(Frame, frame, "Plot Scale", {189, 22, 178, 76}, parent),
             Governed(Label, "lblScale", "Scale:", {6, 14, 36, 8}, frame),
             Governed(ComboBox, "cmbScale", "", {46, 12, 126, 12}, frame).Items(ScaleItems()).Selected(0),
             Governed(Label, "lblCustom", "Custom:", {6, 30, 36, 8}, frame),
             Governed(TextBox, "txtScaleNumer", "", {46, 28, 50, 12}, frame),
             Governed(Label, "lblScaleUnits", NameOf(kPaperUnits, kPaperInches), {100, 30, 60, 8}, frame),
             Governed(TextBox, "txtScaleDenom", "", {46, 43, 50, 12}, frame),
             Governed(Label, "lblDrawingUnits", "Drawing Units", {100, 45, 60, 8}, frame),
             Governed(CheckBox, "chkScaleLine", SettingNamed("ScaleLineWeights").caption, {6, 60, 120, 10}, frame)});
}

void AddPlotOffset(FormTable& table, const char* parent)
{
    const char* const frame = "fmePlotOffset";
    AddRows(table, {ControlRow(Frame, frame, "Plot Offset", {189, 102, 178, 60}, parent),
                    Governed(CheckBox, "chkCenterThePlot", SettingNamed("CenterPlot").caption, {6, 12, 120, 10}, frame),
                    Governed(Label, "lblPlotOffsetX", "X:", {34, 29, 10, 8}, frame),
                    Governed(TextBox, "txtPlotOffsetX", "", {46, 27, 50, 12}, frame),
                    Governed(Label, "lblXUnits", NameOf(kPaperUnits, kPaperInches), {100, 29, 60, 8}, frame),
                    Governed(Label, "lblPlotOffsetY", "Y:", {34, 44, 10, 8}, frame),
                    Governed(TextBox, "txtPlotOffsetY", "", {46, 42, 50, 12}, frame),
                    Governed(Label, "lblYUnits", NameOf(kPaperUnits, kPaperInches), {100, 44, 60, 8}, frame)});
}

void AddPlotOptions(FormTable& table, const char* parent)
{
    const char* const frame = "fmePlotOptions";
    AddRows(
        table,
        {ControlRow(Frame, frame, "Plot Options", {189, 166, 178, 64}, parent),
         Governed(CheckBox, "chkPlotStyles", SettingNamed("PlotWithPlotStyles").caption, {6, 12, 160, 10}, frame),
         Governed(CheckBox, "chkPlotLineWeights", SettingNamed("PlotWithLineWeights").caption, {6, 24, 160, 10}, frame),
         Governed(CheckBox, "chkPaperSpace", SettingNamed("PlotViewportsFirst").caption, {6, 36, 160, 10}, frame),
         Governed(CheckBox, "chkPlotHidden", SettingNamed("PlotHidden").caption, {6, 48, 160, 10}, frame)});
}

} // namespace

void AddPageSetupRows(FormTable& table, const char* parent, bool onItsOwn)
{
    AddRows(table, {Governed(Label, "Label1", "Units:", {260, 7, 32, 8}, parent),
                    Governed(ComboBox, "cmbPaperUnits", "", {295, 5, 72, 12}, parent)
                        .Items({NameOf(kPaperUnits, kPaperInches), NameOf(kPaperUnits, kPaperMillimeters)})
                        .Selected(0)});
    AddPaperSize(table, parent, onItsOwn);
    AddPlotArea(table, parent, onItsOwn);
    AddPlotStyle(table, parent, onItsOwn);
    AddPlotScale(table, parent);
    AddPlotOffset(table, parent);
    AddPlotOptions(table, parent);
}

} // namespace sm
