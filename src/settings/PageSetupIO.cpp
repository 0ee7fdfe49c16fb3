// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/CarryPast.h"
#include "ports/IAcadDocument.h"
#include "settings/DrawingValues.h"
#include "settings/PageSetupFields.h"
#include "settings/mdlDataKegIO.h"
#include "settings/mdlWinReg.h"

namespace sm {

namespace {

/// The first value of the "Plots" record; position 1 stands empty.
constexpr std::size_t kFirstPosition = 2;
constexpr std::int32_t kPlotsCount = std::tuple_size_v<PageSetupFieldTable> + kFirstPosition - 1;

std::int32_t Bit(bool flag)
{
    return flag ? 1 : 0;
}

void ReadOptions(IAcadLayout& layout, PageSetupRecord& record)
{
    record.CenterPlot = Bit(layout.CenterPlot());
    record.PlotHidden = Bit(layout.PlotHidden());
    record.PlotWithLineweights = Bit(layout.PlotWithLineweights());
    record.PlotWithPlotStyles = Bit(layout.PlotWithPlotStyles());
    record.ScaleLineWeights = Bit(layout.ScaleLineweights());
    record.ShowPlotStyles = Bit(layout.ShowPlotStyles());
    record.PlotViewportBorders = Bit(layout.PlotViewportBorders());
    record.PlotViewportsFirst = Bit(layout.PlotViewportsFirst());
}

void ReadPlotArea(IAcadLayout& layout, PageSetupRecord& record)
{
    record.PlotType = layout.PlotType();
    record.ViewToPlot = layout.ViewToPlot();
    AcadPoint lowerLeft, upperRight;
    layout.GetWindowToPlot(lowerLeft, upperRight);
    record.WinLowerLeftX = lowerLeft.x;
    record.WinLowerLeftY = lowerLeft.y;
    record.WinUpperRightX = upperRight.x;
    record.WinUpperRightY = upperRight.y;
    const AcadPoint origin = layout.PlotOrigin();
    record.PlotOriginX = origin.x;
    record.PlotOriginY = origin.y;
}

PageSetupRecord LayoutRecord(CallContext& context, IAcadLayout& layout)
{
    PageSetupRecord record;
    record.ConfigName = layout.ConfigName();
    record.CanonicalMediaName = layout.CanonicalMediaName();
    // The display name is for the eye only, and a medium that its device no longer offers has none.
    record.LocaleMedianame = CarryPast(context, "ReadLayoutPageSetup", [&] {
                                 return layout.GetLocaleMediaName(record.CanonicalMediaName);
                             }).value_or("");
    record.StyleSheet = layout.StyleSheet();
    record.PlotRotation = layout.PlotRotation();
    ReadPlotArea(layout, record);
    ReadOptions(layout, record);
    record.PaperUnits = layout.PaperUnits();
    record.UseStandardScale = Bit(layout.UseStandardScale());
    record.StandardScale = layout.StandardScale();
    layout.GetCustomScale(record.ScaleNumer, record.ScaleDenom);
    layout.GetPaperSize(record.PaperWidth, record.PaperHeight);
    return record;
}

} // namespace

CustomPageSetup ReadCustomPageSetup(CallContext& context, IAcadDocument& document, PageSetupRecord& record)
{
    bool failed = false;
    const std::vector<std::string> values = GetDrawingData(context, "Plots", kPlotsCount, document, &failed);
    if (failed)
        return CustomPageSetup::HostError;
    record = PageSetupRecord();
    std::size_t position = kFirstPosition;
    for (const PageSetupField& field : PageSetupFields())
        SetFieldText(record, field, ValueAt(values, position++));
    MendScale(record);
    return values[0].empty() ? CustomPageSetup::Defaults : CustomPageSetup::Read;
}

bool WriteCustomPageSetup(CallContext& context, IAcadDocument& document, const PageSetupRecord& record)
{
    std::vector<AcadVariant> values = {std::string()};
    for (const PageSetupField& field : PageSetupFields())
        values.emplace_back(BoolToText(context.surroundings.locale, FieldValue(record, field)));
    SetDrawingData(context, "Plots", values, document);
    return true;
}

PageSetupRecord ReadGlobalPageSetup(Surroundings& surroundings)
{
    PageSetupRecord record;
    for (const PageSetupField& field : PageSetupFields())
        SetFieldText(record, field, StoredSetting(surroundings.registry, field.valueName));
    MendScale(record);
    return record;
}

void WriteGlobalPageSetup(Surroundings& surroundings, const PageSetupRecord& record)
{
    for (const PageSetupField& field : PageSetupFields())
        WriteSetting(surroundings, field.valueName, FieldValue(record, field));
}

bool ReadLayoutPageSetup(CallContext& context, IAcadLayout& layout, PageSetupRecord& record)
{
    return CarryPast(context, "ReadLayoutPageSetup", [&] { record = LayoutRecord(context, layout); });
}

} // namespace sm
