// SPDX-License-Identifier: GPL-3.0-or-later
// Page setup records into the controls and back.
#include "ui/mdlGUITap.h"

#include "plugin/mdlAcadHelper.h"
#include "ports/PlotNumbers.h"
#include "settings/mdlUtilities.h"
#include "ui/form/HostLists.h"

#include <algorithm>

namespace sm {
namespace {

constexpr std::int32_t kLastStandardScale = 31; ///< "100:1"

void FillPapers(Form& form, const PageSetupFilling& source)
{
    std::vector<std::string> names;
    std::vector<ListRow> rows;
    std::int32_t chosen = 0;
    for (const PaperSize& paper : source.papers) {
        if (paper.CanonicalMediaName == source.record.CanonicalMediaName)
            chosen = static_cast<std::int32_t>(rows.size());
        names.push_back(paper.LocaleMedianame);
        rows.push_back({paper.CanonicalMediaName, {NumberText(paper.Width), NumberText(paper.Height)}});
    }
    form.SetItems("cmbPaperSize", std::move(names));
    form.SetRows("lstPaperSize", std::move(rows));
    form.Select("cmbPaperSize", chosen);
}

void FillUnitsAndOffsets(PageSetupControls& controls, const PageSetupRecord& record)
{
    Form& form = controls.GetForm();
    const bool millimetres = record.PaperUnits == kPaperMillimeters;
    form.Select("cmbPaperUnits", millimetres ? kPaperMillimeters : kPaperInches); // its items are those of the units
    controls.cmbPaperUnits_click(); // the labels; what it converts is filled anew below
    const double unit = millimetres ? 1 : kMillimetresPerInch;
    controls.PlotOffsetX = record.PlotOriginX / unit;
    controls.PlotOffsetY = record.PlotOriginY / unit;
    form.SetText("txtPlotOffsetX", "");
    form.SetText("txtPlotOffsetY", "");
    form.SetTicked("chkCenterThePlot", record.CenterPlot != 0);
}

void FillPlotArea(PageSetupControls& controls, const PageSetupRecord& record)
{
    Form& form = controls.GetForm();
    controls.PlotWinX1 = record.WinLowerLeftX;
    controls.PlotWinY1 = record.WinLowerLeftY;
    controls.PlotWinX2 = record.WinUpperRightX;
    controls.PlotWinY2 = record.WinUpperRightY;
    form.SetEnabled("optWindow", controls.HasPlotWindow());
    const char* const options[] = {"optDisplay", "optExtents", "optLayout", "optView", "optWindow", "optLayout"};
    for (const char* option : options)
        form.SetTicked(option, false);
    if (record.PlotType >= kPlotDisplay && record.PlotType <= kPlotLayout)
        form.SetTicked(options[record.PlotType], true);
}

void FillScale(PageSetupControls& controls, const PageSetupRecord& record)
{
    Form& form = controls.GetForm();
    controls.CustomScaleNumer = record.ScaleNumer;
    controls.CustomScaleDenom = record.ScaleDenom;
    const bool listed = record.StandardScale >= -1 && record.StandardScale <= kLastStandardScale;
    if (record.UseStandardScale == 0)
        form.Select("cmbScale", 0);
    else
        form.Select("cmbScale", listed ? record.StandardScale + 1 : kNothingSelected);
    form.SetText("txtScaleNumer", NumberText(record.ScaleNumer));
    form.SetText("txtScaleDenom", NumberText(record.ScaleDenom));
}

/// A combo that offers `names` and shows `chosen`; a name it doesn't offer is no entry, is told, and is kept at the
/// save.
void FillNames(Form& form, const std::string& combo, const std::vector<std::string>& names, const std::string& chosen)
{
    form.SetItems(combo, names);
    const bool isGone = !form.SelectText(combo, chosen) && !chosen.empty();
    form.SetNotice(combo, isGone ? chosen + " (missing)" : "");
}

/// The page setup dialog's pairs: lists where there are any, else boxes to type into.
void FillNameBoxes(PageSetupControls& controls, const PageSetupFilling& source, bool anyViews)
{
    Form& form = controls.GetForm();
    form.SetText("txtView", source.record.ViewToPlot);
    form.SetText("txtPlotStyle", source.record.StyleSheet);
    controls.ShowNameBoxes(!anyViews, source.plotStyles.size() <= 1);
}

void FillViewsAndStyles(PageSetupControls& controls, const PageSetupFilling& source)
{
    Form& form = controls.GetForm();
    const CallContext& context = form.Session().context;
    const bool onItsOwn = controls.Kind() == PageSetupKind::PageSetupDialog;
    std::vector<std::string> views;
    if (!onItsOwn || context.g_AcadDoc != nullptr)
        views = ViewNames(ActiveDrawing(context));
    FillNames(form, "cmbView", views, source.record.ViewToPlot);
    FillNames(form, "cmbPlotStyle", source.plotStyles, source.record.StyleSheet);
    if (source.record.StyleSheet.empty())
        form.Select("cmbPlotStyle", 0);
    if (onItsOwn)
        FillNameBoxes(controls, source, !views.empty());
}

void FillOptions(Form& form, const PageSetupRecord& record)
{
    form.SetTicked("chkPlotStyles", record.PlotWithPlotStyles != 0);
    form.SetTicked("chkPaperSpace", record.PlotViewportsFirst != 0);
    form.SetTicked("chkPlotHidden", record.PlotHidden != 0);
    form.SetTicked("chkPlotLineWeights", record.PlotWithLineweights != 0);
    form.SetTicked("chkScaleLine", record.ScaleLineWeights != 0);
}

/// Enabling and colours, by the rules for which the controls are now ready.
void ApplySwitch(PageSetupControls& controls, std::int32_t selection)
{
    Form& form = controls.GetForm();
    controls.PaperSizeRule();
    controls.PDFPageSetupOn();
    if (controls.Kind() == PageSetupKind::PageSetupDialog)
        return;
    form.SetTicked("chkPageSetup", selection == kPageSetupCustom);
    if (selection != kPageSetupCustom)
        controls.PDFPageSetupOff();
}

void SavePaper(const Form& form, PageSetupRecord& record)
{
    const std::vector<ListRow>& rows = form.Control("lstPaperSize").rows;
    const std::int32_t chosen = form.Selection("cmbPaperSize");
    if (chosen < 0 || static_cast<std::size_t>(chosen) >= rows.size())
        return;
    const ListRow& row = rows[static_cast<std::size_t>(chosen)];
    record.CanonicalMediaName = row.text;
    record.LocaleMedianame = form.Text("cmbPaperSize");
    record.PaperWidth = Val(row.subItems[0]);
    record.PaperHeight = Val(row.subItems[1]);
}

/// In the page setup dialog the choice reads "Layout/ Limits": limits stay limits there.
std::int32_t LayoutPlotType(PageSetupKind kind, const LayoutSettings& layout, const PageSetupRecord& record)
{
    const bool limits = kind == PageSetupKind::SettingsDialog ? layout.IsModelSpace : record.PlotType == kPlotLimits;
    return limits ? kPlotLimits : kPlotLayout;
}

void SavePlotArea(const PageSetupControls& controls, const LayoutSettings& layout, PageSetupRecord& record)
{
    const Form& form = controls.GetForm();
    const std::pair<const char*, std::int32_t> options[] = {
        {"optExtents", kPlotExtents},
        {"optWindow", kPlotWindow},
        {"optLayout", LayoutPlotType(controls.Kind(), layout, record)},
        {"optView", kPlotView},
        {"optDisplay", kPlotDisplay}};
    const auto chosen = std::find_if(std::begin(options), std::end(options),
                                     [&](const auto& option) { return form.IsTicked(option.first); });
    if (chosen != std::end(options))
        record.PlotType = chosen->second;
    record.WinLowerLeftX = controls.PlotWinX1;
    record.WinLowerLeftY = controls.PlotWinY1;
    record.WinUpperRightX = controls.PlotWinX2;
    record.WinUpperRightY = controls.PlotWinY2;
}

void SaveNames(const PageSetupControls& controls, PageSetupRecord& record)
{
    const Form& form = controls.GetForm();
    if (controls.Kind() == PageSetupKind::PageSetupDialog) {
        record.ViewToPlot = form.Text("txtView");
        record.StyleSheet = form.Text("txtPlotStyle");
        return;
    }
    if (form.Selection("cmbView") != kNothingSelected)
        record.ViewToPlot = form.Text("cmbView");
    const std::int32_t style = form.Selection("cmbPlotStyle");
    if (style != kNothingSelected)
        record.StyleSheet = style == 0 ? "" : form.Text("cmbPlotStyle");
}

void SaveLengthsAndScale(const Form& form, PageSetupRecord& record)
{
    const double unit = form.Selection("cmbPaperUnits") == kPaperInches ? kMillimetresPerInch : 1;
    record.CenterPlot = form.IsTicked("chkCenterThePlot") ? 1 : 0;
    record.PlotOriginX = Val(form.Text("txtPlotOffsetX")) * unit;
    record.PlotOriginY = Val(form.Text("txtPlotOffsetY")) * unit;
    const std::int32_t scale = form.Selection("cmbScale");
    if (scale != kNothingSelected) { // a code that the list hasn't is kept
        record.UseStandardScale = scale == 0 ? 0 : 1;
        record.StandardScale = scale - 1;
    }
    record.ScaleNumer = Val(form.Text("txtScaleNumer"));
    record.ScaleDenom = Val(form.Text("txtScaleDenom"));
    record.PaperUnits = form.Selection("cmbPaperUnits");
}

void SaveOptions(const Form& form, PageSetupRecord& record)
{
    const auto bit = [&](const char* name) { return form.IsTicked(name) ? 1 : 0; };
    record.PlotWithPlotStyles = bit("chkPlotStyles");
    record.PlotHidden = bit("chkPlotHidden");
    record.PlotViewportsFirst = bit("chkPaperSpace");
    record.PlotWithLineweights = bit("chkPlotLineWeights");
    record.ScaleLineWeights = bit("chkScaleLine");
    record.ShowPlotStyles = 1;
    record.PlotViewportBorders = 0;
}

} // namespace

std::int32_t SelectionOf(bool custom, std::int32_t before)
{
    if (custom)
        return kPageSetupCustom;
    return before == kPageSetupCustom ? kPageSetupNative : before;
}

bool SetPageSetupTab(PageSetupControls& controls, const PageSetupFilling& source)
{
    Form& form = controls.GetForm();
    return RunTabRoutine(form.Session().context, "SetPageSetupTab", [&] {
        FillPapers(form, source);
        FillUnitsAndOffsets(controls, source.record);
        FillPlotArea(controls, source.record);
        FillScale(controls, source.record);
        FillViewsAndStyles(controls, source);
        FillOptions(form, source.record);
        ApplySwitch(controls, source.selection);
    });
}

bool SavePageSetupTab(const PageSetupControls& controls, const LayoutSettings& layout, PageSetupRecord& record,
                      std::int32_t& selection)
{
    const Form& form = controls.GetForm();
    return RunTabRoutine(form.Session().context, "SavePageSetupTab", [&] {
        if (controls.Kind() == PageSetupKind::SettingsDialog) {
            selection = SelectionOf(form.IsTicked("chkPageSetup"), selection);
            if (!form.IsTicked("chkPageSetup"))
                return;
        }
        PageSetupRecord saved = record;
        SavePaper(form, saved);
        SavePlotArea(controls, layout, saved);
        SaveNames(controls, saved);
        SaveLengthsAndScale(form, saved);
        SaveOptions(form, saved);
        record = saved;
    });
}

} // namespace sm
