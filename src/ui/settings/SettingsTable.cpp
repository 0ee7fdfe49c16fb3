// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/SettingsTable.h"

#include "settings/SettingTable.h"
#include "ui/settings/PageSetupTable.h"
#include "ui/settings/StampControls.h"

namespace sm {
namespace {

using enum ControlKind;

constexpr ControlPlace kPage{0, 0, 374, 236};

void AddConversion(FormTable& table)
{
    AddRows(
        table,
        {ControlRow(Frame, "FrmWhatToPlot", "What To Plot", {7, 7, 178, 42}, "pagGeneral"),
         ControlRow(OptionButton, "optAllLayouts", NameOf(kWhatToPlot, kPlotAllTabs), {6, 12, 166, 10},
                    "FrmWhatToPlot"),
         ControlRow(OptionButton, "optCurrentTab", NameOf(kWhatToPlot, kPlotCurrentTab), {6, 26, 166, 10},
                    "FrmWhatToPlot"),
         ControlRow(Frame, "FrmGeneral", "General", {7, 55, 178, 56}, "pagGeneral"),
         ControlRow(CheckBox, "chkFileName", SettingNamed("PromptForFileName").caption, {6, 12, 166, 10}, "FrmGeneral"),
         ControlRow(CheckBox, "chkDeletePs", SettingNamed("DeletePs").caption, {6, 26, 166, 10}, "FrmGeneral"),
         ControlRow(CheckBox, "chkViewResults", SettingNamed("OpenInViewer").caption, {6, 40, 166, 10}, "FrmGeneral"),
         ControlRow(Frame, "FrmLineQuality", "Line Quality", {7, 117, 178, 42}, "pagGeneral"),
         ControlRow(OptionButton, "optSpeed", NameOf(kLineQualities, kLinesForDraft), {6, 12, 166, 10},
                    "FrmLineQuality"),
         ControlRow(OptionButton, "optQuality", NameOf(kLineQualities, kLinesForPrint), {6, 26, 166, 10},
                    "FrmLineQuality"),
         ControlRow(Frame, "Frame1", "Raster Image Quality", {7, 165, 178, 32}, "pagGeneral"),
         ControlRow(ComboBox, "cmbJobOpts", "", {6, 13, 166, 12}, "Frame1")});
}

void AddTransfer(FormTable& table)
{
    const char* const links = "FrmTransPaperHyper";
    AddRows(
        table,
        {ControlRow(Frame, "Frame3", "Transfer Block Attributes", {189, 7, 178, 28}, "pagGeneral"),
         ControlRow(CheckBox, "chkTransferAttributes", SettingNamed("TransferAttributes").caption, {6, 12, 166, 10},
                    "Frame3"),
         ControlRow(Frame, links, "Transfer Paperspace Hyperlinks", {189, 41, 178, 70}, "pagGeneral"),
         ControlRow(CheckBox, "chkHlinkBlocks", SettingNamed("TransferBlockHlinks").caption, {6, 12, 166, 10}, links),
         ControlRow(CheckBox, "chkHlinkText", SettingNamed("TransferTextHlinks").caption, {6, 26, 166, 10}, links),
         ControlRow(CheckBox, "chkHlinkDrawing", SettingNamed("TransferDrawingHlinks").caption, {6, 40, 166, 10},
                    links),
         ControlRow(CheckBox, "chkHlinkVPorts", SettingNamed("TransferVPortHlinks").caption, {6, 54, 166, 10}, links),
         ControlRow(Picture, "picTarnwick", "", {189, 119, 178, 78}, "pagGeneral"),
         ControlRow(Image, "imgLogo", "", {9, 0, 160, 48}, "picTarnwick").Picture("logo")});
}

void AddPageSetup(FormTable& table)
{
    table.push_back(ControlRow(CheckBox, "chkPageSetup", "Use Custom PDF Page Setup", {7, 6, 178, 10}, "pagPageSetup"));
    AddPageSetupRows(table, "pagPageSetup", false);
}

ControlRow Stamped(ControlKind kind, const char* name, const char* caption, ControlPlace place, const char* parent)
{
    return ControlRow(kind, name, caption, place, parent).Tag(kTextStampTag);
}

void AddStamp(FormTable& table)
{
    AddRows(table, {ControlRow(Frame, "fmeStampText", "Step 1: Text Stamp", {7, 7, 360, 44}, "pagStamp"),
                    ControlRow(Label, "lblStamp", "Select Stamp Text:", {6, 11, 100, 8}, "fmeStampText"),
                    ControlRow(ComboBox, "cmbStampText", "", {6, 22, 276, 12}, "fmeStampText"),
                    ControlRow(ListBox, "lstStampText", "", {}, "fmeStampText").Hidden(),
                    Stamped(CommandButton, "btnStampEdit", "Customize...", {288, 21, 66, 14}, "fmeStampText"),
                    ControlRow(Frame, "fmeStampFont", "Step 2: Font Settings", {7, 57, 360, 54}, "pagStamp"),
                    Stamped(Label, "lblStampFont", "Font:", {6, 14, 50, 8}, "fmeStampFont"),
                    Stamped(ComboBox, "cmbStampFont", "", {60, 12, 140, 12}, "fmeStampFont"),
                    Stamped(Label, "lblStampSize", "Size:", {220, 14, 40, 8}, "fmeStampFont"),
                    Stamped(ComboBox, "cmbStampSize", "", {264, 12, 60, 12}, "fmeStampFont"),
                    Stamped(Label, "lblStampJustify", "Justify:", {6, 34, 50, 8}, "fmeStampFont"),
                    Stamped(ComboBox, "cmbStampJustify", "", {60, 32, 140, 12}, "fmeStampFont"),
                    Stamped(Label, "lblStampColor", "Color:", {220, 34, 40, 8}, "fmeStampFont"),
                    Stamped(ColorButton, "btnStampColor", "", {264, 31, 60, 14}, "fmeStampFont"),
                    ControlRow(Frame, "fmeStampPosition", "Step 3: Stamp Position", {7, 117, 360, 54}, "pagStamp"),
                    Stamped(Label, "lblStampLayout", "Layout Tab:", {6, 14, 50, 8}, "fmeStampPosition"),
                    Stamped(ComboBox, "cmbStampLayout", "", {60, 12, 140, 12}, "fmeStampPosition"),
                    Stamped(Label, "lblStampX", "X:", {48, 34, 10, 8}, "fmeStampPosition"),
                    Stamped(TextBox, "txtStampX", "", {60, 32, 60, 12}, "fmeStampPosition"),
                    Stamped(Label, "lblStampY", "Y:", {128, 34, 10, 8}, "fmeStampPosition"),
                    Stamped(TextBox, "txtStampY", "", {140, 32, 60, 12}, "fmeStampPosition"),
                    Stamped(CommandButton, "btnStampPoints", "Get Point >", {220, 31, 66, 14}, "fmeStampPosition")});
}

void AddLists(FormTable& table)
{
    AddRows(
        table,
        {ControlRow(Frame, "fmeAttach", "File Attachments", {7, 7, 360, 222}, "pagAttach"),
         ControlRow(ListView, "lstAttach", "", {6, 13, 348, 184}, "fmeAttach")
             .Columns({{"Title", 80}, {"Path", 120}, {"X", 44}, {"Y", 44}, {"Tab", 56}}),
         ControlRow(CommandButton, "btnAttachAdd", "&Add", {6, 202, 52, 14}, "fmeAttach"),
         ControlRow(CommandButton, "btnAttachModify", "&Modify", {62, 202, 52, 14}, "fmeAttach").Disabled(),
         ControlRow(CommandButton, "btnAttachDelete", "&Delete", {118, 202, 52, 14}, "fmeAttach").Disabled(),
         ControlRow(Frame, "fmeDigSig", "Digital Signature Fields", {7, 7, 360, 222}, "pagDigSig"),
         ControlRow(ListView, "lstDigSig", "", {6, 13, 348, 184}, "fmeDigSig")
             .Columns(
                 {{"Name", 66}, {"Description", 66}, {"X1", 40}, {"Y1", 40}, {"X2", 40}, {"Y2", 40}, {"Layout", 52}}),
         ControlRow(CommandButton, "btnDigSigAdd", "Add", {6, 202, 52, 14}, "fmeDigSig"),
         ControlRow(CommandButton, "btnDigSigModify", "Modify", {62, 202, 52, 14}, "fmeDigSig").Disabled(),
         ControlRow(CommandButton, "btnDigSigDelete", "Delete", {118, 202, 52, 14}, "fmeDigSig").Disabled()});
}

} // namespace

FormTable SettingsTable()
{
    FormTable table = {ControlRow(FormWindow, "frmGUITap", "", {0, 0, 396, 290}),
                       ControlRow(TabStrip, "tabPDFMaker", "", {7, 7, 382, 254}),
                       ControlRow(TabPage, "pagGeneral", "General Settings", kPage, "tabPDFMaker"),
                       ControlRow(TabPage, "pagPageSetup", "PDF Page Setup", kPage, "tabPDFMaker"),
                       ControlRow(TabPage, "pagStamp", "Text Stamp", kPage, "tabPDFMaker"),
                       ControlRow(TabPage, "pagAttach", "File Attachments", kPage, "tabPDFMaker"),
                       ControlRow(TabPage, "pagDigSig", "Digital Signature Fields", kPage, "tabPDFMaker")};
    AddConversion(table);
    AddTransfer(table);
    AddPageSetup(table);
    AddStamp(table);
    AddLists(table);
    AddRows(table, {ControlRow(CommandButton, "btnPDF", "Create PDF", {155, 268, 60, 14}),
                    ControlRow(CommandButton, "btnOK", "&OK", {219, 268, 54, 14}).Default(),
                    ControlRow(CommandButton, "btnCancel", "Canc&el", {277, 268, 54, 14}).Cancel(),
                    ControlRow(CommandButton, "btnHelp", "Help", {335, 268, 54, 14})});
    return table;
}

} // namespace sm
