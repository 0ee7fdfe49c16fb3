// SPDX-License-Identifier: GPL-3.0-or-later
// The tabs of conversion settings, stamp, attachments and signature fields: loading and saving.
#include "ui/mdlGUITap.h"

#include "plotting/JobOptions.h"
#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "settings/mdlUtilities.h"
#include "ui/form/HostLists.h"
#include "ui/form/NumberFields.h"
#include "ui/settings/StampControls.h"

namespace sm {
namespace {

struct SwitchBox {
    const char* box;
    bool GeneralSettings::*value;
};
constexpr SwitchBox kSwitchBoxes[] = {{"chkFileName", &GeneralSettings::PromptForFileName},
                                      {"chkDeletePs", &GeneralSettings::DeletePs},
                                      {"chkViewResults", &GeneralSettings::OpenInViewer}};

struct TransferBox {
    const char* box;
    VariantBool TransferFlags::*flag;
};
constexpr TransferBox kTransferBoxes[] = {{"chkHlinkBlocks", &TransferFlags::TransferBlockHlinks},
                                          {"chkHlinkText", &TransferFlags::TransferTextHlinks},
                                          {"chkHlinkDrawing", &TransferFlags::TransferDrawingHlinks},
                                          {"chkHlinkVPorts", &TransferFlags::TransferVPortHlinks},
                                          {"chkTransferAttributes", &TransferFlags::TransferAttributes}};

/// The one layout entry of the bundle, as constant as the bundle is.
template <class Keg> auto& EntryOf(Keg& keg)
{
    if (keg.Layouts.empty())
        throw HostError("The drawing's settings hold no layout.");
    return keg.Layouts.front();
}

/// Values that their combo doesn't offer show as no choice; saving keeps them.
void TakeText(const Form& form, const char* combo, std::string& value)
{
    if (form.Selection(combo) != kNothingSelected)
        value = form.Text(combo);
}

void FillStampLayouts(Form& form, const std::string& chosen)
{
    std::vector<std::string> layouts = {kAllLayouts};
    for (const std::string& name : LayoutNames(ActiveDrawing(form.Session().context)))
        layouts.push_back(name);
    form.SetItems("cmbStampLayout", layouts);
    form.SelectText("cmbStampLayout", chosen.empty() ? kAllLayouts : chosen);
}

void FillStampTexts(StampControls& controls, const DataKeg& keg)
{
    Form& form = controls.GetForm();
    controls.DrawingFullName = EntryOf(keg).DrawingFullName;
    controls.LoginName = keg.LoginName;
    form.SetItems("cmbStampText", {});
    form.SetItems("lstStampText", {});
    for (const std::string& text : keg.Stamps)
        controls.AddStampText(text);
    form.Select("cmbStampText", EntryOf(keg).Stamp.StampIndex);
}

/// Rows of a tab's list and the layouts of its row dialog; no row is chosen.
void FillList(Form& form, Form& rowForm, const char* list, const char* layoutCombo, std::vector<ListRow> rows)
{
    form.SetRows(list, std::move(rows));
    rowForm.SetItems(layoutCombo, LayoutNames(ActiveDrawing(form.Session().context)));
}

} // namespace

bool RunTabRoutine(CallContext& context, const char* routine, const std::function<void()>& body)
{
    return GiveUp(
        [&] {
            body();
            return true;
        },
        [&](const std::string& description) {
            TryLogLine(context, std::string("RUNTIME ERROR: ") + routine + " -" + description);
            return false;
        });
}

bool SetConversionSettingsTab(Form& form, const DataKeg& keg)
{
    CallContext& context = form.Session().context;
    return RunTabRoutine(context, "SetConversionSettingsTab", [&] {
        const GeneralSettings& general = keg.General;
        form.SetTicked(general.WhatToPlot != kPlotCurrentTab ? "optAllLayouts" : "optCurrentTab", true);
        form.SetTicked(general.Optimization != kLinesForPrint ? "optSpeed" : "optQuality", true);
        for (const SwitchBox& row : kSwitchBoxes)
            form.SetTicked(row.box, general.*row.value);
        for (const TransferBox& row : kTransferBoxes)
            form.SetTicked(row.box, general.Transfer.*row.flag != kFalse);
        form.SetItems("cmbJobOpts", ListJobOptions(context.surroundings));
        form.SelectText("cmbJobOpts", general.JobOptionsFile);
    });
}

bool SaveConversionSettingsTab(Form& form, DataKeg& keg)
{
    return RunTabRoutine(form.Session().context, "SaveConversionSettingsTab", [&] {
        GeneralSettings general = keg.General;
        general.WhatToPlot = form.IsTicked("optAllLayouts") ? kPlotAllTabs : kPlotCurrentTab;
        general.Optimization = form.IsTicked("optSpeed") ? kLinesForDraft : kLinesForPrint;
        for (const SwitchBox& row : kSwitchBoxes)
            general.*row.value = form.IsTicked(row.box);
        for (const TransferBox& row : kTransferBoxes)
            general.Transfer.*row.flag = form.IsTicked(row.box) ? kTrue : kFalse;
        TakeText(form, "cmbJobOpts", general.JobOptionsFile);
        keg.General = general;
    });
}

bool SetStampTab(StampControls& controls, const DataKeg& keg)
{
    Form& form = controls.GetForm();
    return RunTabRoutine(form.Session().context, "SetStampTab", [&] {
        const StampSettings& stamp = EntryOf(keg).Stamp;
        FillStampTexts(controls, keg);
        form.SelectText("cmbStampFont", stamp.FontName);
        form.SelectText("cmbStampSize", std::to_string(stamp.FontSize));
        form.Select("cmbStampJustify", stamp.Justification);
        form.SetText("txtStampX", PointText(stamp.X));
        form.SetText("txtStampY", PointText(stamp.Y));
        form.SetBackColor("btnStampColor", {ColorRole::Explicit, stamp.Color});
        FillStampLayouts(form, stamp.LayoutName);
        controls.StampSwitch();
    });
}

bool SaveStampTab(const StampControls& controls, DataKeg& keg)
{
    const Form& form = controls.GetForm();
    return RunTabRoutine(form.Session().context, "SaveStampTab", [&] {
        StampSettings stamp = EntryOf(keg).Stamp;
        const std::vector<std::string>& rawTexts = form.Control("lstStampText").items;
        if (form.Selection("cmbStampText") != kNothingSelected)
            stamp.StampIndex = form.Selection("cmbStampText");
        TakeText(form, "cmbStampFont", stamp.FontName);
        if (form.Selection("cmbStampSize") != kNothingSelected)
            stamp.FontSize = RoundToInteger(Val(form.Text("cmbStampSize")));
        if (form.Selection("cmbStampJustify") != kNothingSelected)
            stamp.Justification = form.Selection("cmbStampJustify");
        stamp.X = Val(form.Text("txtStampX"));
        stamp.Y = Val(form.Text("txtStampY"));
        stamp.Color = form.Control("btnStampColor").backColor.rgb;
        TakeText(form, "cmbStampLayout", stamp.LayoutName);
        for (std::size_t i = 1; i < keg.Stamps.size() && i < rawTexts.size(); ++i)
            keg.Stamps[i] = rawTexts[i];
        EntryOf(keg).Stamp = stamp;
    });
}

bool SetAttachTab(Form& form, Form& rowForm, const DataKeg& keg)
{
    CallContext& context = form.Session().context;
    return RunTabRoutine(context, "SetAttachTab", [&] {
        std::vector<ListRow> rows;
        for (const AttachmentEntry& entry : EntryOf(keg).Attachments)
            rows.push_back({FileNamePart(context.surroundings.locale, entry.FilePath),
                            {entry.FilePath, PointText(entry.X), PointText(entry.Y), entry.LayoutName}});
        FillList(form, rowForm, "lstAttach", "cmbAttachLayout", std::move(rows));
    });
}

bool SaveAttachTab(Form& form, DataKeg& keg)
{
    return RunTabRoutine(form.Session().context, "SaveAttachTab", [&] {
        std::vector<AttachmentEntry> entries;
        for (const ListRow& row : form.Control("lstAttach").rows)
            entries.push_back(
                {row.subItems.at(0), Val(row.subItems.at(1)), Val(row.subItems.at(2)), row.subItems.at(3)});
        EntryOf(keg).Attachments = std::move(entries);
    });
}

bool SetDigSigTab(Form& form, Form& rowForm, const DataKeg& keg)
{
    return RunTabRoutine(form.Session().context, "SetDigSigTab", [&] {
        std::vector<ListRow> rows;
        for (const SignatureFieldEntry& entry : EntryOf(keg).SignatureFields)
            rows.push_back({entry.FieldName,
                            {entry.FieldLabel, PointText(entry.X1), PointText(entry.Y1), PointText(entry.X2),
                             PointText(entry.Y2), entry.LayoutName}});
        FillList(form, rowForm, "lstDigSig", "cmbDigSigLayout", std::move(rows));
    });
}

bool SaveDigSigTab(Form& form, DataKeg& keg)
{
    return RunTabRoutine(form.Session().context, "SaveDigSigTab", [&] {
        std::vector<SignatureFieldEntry> entries;
        for (const ListRow& row : form.Control("lstDigSig").rows)
            entries.push_back({row.text, row.subItems.at(0), Val(row.subItems.at(1)), Val(row.subItems.at(2)),
                               Val(row.subItems.at(3)), Val(row.subItems.at(4)), row.subItems.at(5)});
        EntryOf(keg).SignatureFields = std::move(entries);
    });
}

} // namespace sm
