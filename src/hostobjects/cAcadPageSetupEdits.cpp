// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostobjects/cAcadPageSetup.h"
#include "plotting/PaperTable.h"
#include "ports/PlotNumbers.h"
#include "settings/PageSetupFields.h"
#include "settings/mdlUtilities.h"

namespace sm {

namespace {

constexpr std::int32_t kInches = 0;
constexpr std::int32_t kMillimetres = 1;

} // namespace

void cAcadPageSetup::IAcadPageSetup_CopyFrom(IAcadPageSetup& other)
{
    PageSetupRecord record = RecordOf(other);
    MendScale(record);
    m_record = record;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetStandardMedia(std::int32_t index)
{
    std::vector<PaperSize> table;
    m_changed = true;
    if (index < 0 || index >= LoadPaperTable(table))
        return;
    const PaperSize& row = table[static_cast<std::size_t>(index)];
    m_record.CanonicalMediaName = row.CanonicalMediaName;
    m_record.LocaleMedianame = row.LocaleMedianame;
    m_record.PaperWidth = row.Width;
    m_record.PaperHeight = row.Height;
}

void cAcadPageSetup::IAcadPageSetup_SetCustomMedia(double width, double height, std::int32_t units)
{
    m_record.PaperWidth = width;
    m_record.PaperHeight = height;
    m_record.PaperUnits = units;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotType(std::int32_t plotType)
{
    m_record.PlotType = plotType;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetWindowToPlot(double llx, double lly, double urx, double ury)
{
    m_record.WinLowerLeftX = llx;
    m_record.WinLowerLeftY = lly;
    m_record.WinUpperRightX = urx;
    m_record.WinUpperRightY = ury;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotStyle(const std::string& name)
{
    m_record.StyleSheet = name;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetViewToPlot(const std::string& name)
{
    m_record.ViewToPlot = name;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotOffset(VariantBool center, double x, double y, std::int32_t units)
{
    const double unit = units == kInches ? kMillimetresPerInch : 1;
    m_record.CenterPlot = BoolToBit(center);
    m_record.PlotOriginX = x * unit;
    m_record.PlotOriginY = y * unit;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetStandardScale(std::int32_t code)
{
    m_record.StandardScale = code;
    m_record.UseStandardScale = 1;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetCustomScale(double numerator, double denominator,
                                                   std::optional<std::int32_t> units)
{
    m_record.ScaleNumer = numerator;
    m_record.ScaleDenom = denominator;
    m_record.UseStandardScale = 0;
    if (units)
        m_record.PaperUnits = *units == kMillimetres ? kMillimetres : kInches;
    m_changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotOptions(VariantBool scaleLineWeights, VariantBool plotWithLineweights,
                                                   VariantBool plotWithPlotStyles, VariantBool plotViewportsFirst,
                                                   VariantBool plotHidden)
{
    m_record.ScaleLineWeights = BoolToBit(scaleLineWeights);
    m_record.PlotWithLineweights = BoolToBit(plotWithLineweights);
    m_record.PlotWithPlotStyles = BoolToBit(plotWithPlotStyles);
    m_record.PlotViewportsFirst = BoolToBit(plotViewportsFirst);
    m_record.PlotHidden = BoolToBit(plotHidden);
    m_changed = true;
}

} // namespace sm
