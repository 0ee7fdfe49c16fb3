#include "hostobjects/cAcadPageSetup.h"
#include "plotting/PaperTable.h"
#include "settings/PageSetupFields.h"
#include "settings/mdlUtilities.h"

namespace sm {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr std::int32_t kInches = 0;
constexpr std::int32_t kMillimetres = 1;

void CopyLengths(IAcadPageSetup& other, PageSetupRecord& record)
{
    record.PaperWidth = other.PaperWidth();
    record.PaperHeight = other.PaperHeight();
    record.PlotOriginX = other.PlotOriginX();
    record.PlotOriginY = other.PlotOriginY();
    record.ScaleNumer = other.ScaleNumer();
    record.ScaleDenom = other.ScaleDenom();
    record.WinLowerLeftX = other.WinLowerLeftX();
    record.WinLowerLeftY = other.WinLowerLeftY();
    record.WinUpperRightX = other.WinUpperRightX();
    record.WinUpperRightY = other.WinUpperRightY();
}

void CopyNamesAndCodes(IAcadPageSetup& other, PageSetupRecord& record)
{
    record.CanonicalMediaName = other.CanonicalMediaName();
    record.LocaleMedianame = other.LocaleMedianame();
    record.StyleSheet = other.StyleSheet();
    record.ViewToPlot = other.ViewToPlot();
    record.PlotRotation = other.PlotRotation();
    record.PlotType = other.PlotType();
    record.StandardScale = other.StandardScale();
    record.PaperUnits = other.PaperUnits();
}

void CopyFlags(IAcadPageSetup& other, PageSetupRecord& record)
{
    record.CenterPlot = BoolToBit(other.CenterPlot());
    record.UseStandardScale = BoolToBit(other.UseStandardScale());
    record.PlotWithPlotStyles = BoolToBit(other.PlotWithPlotStyles());
    record.ShowPlotStyles = BoolToBit(other.ShowPlotStyles());
    record.PlotHidden = BoolToBit(other.PlotHidden());
    record.PlotViewportsFirst = BoolToBit(other.PlotViewportsFirst());
    record.PlotWithLineweights = BoolToBit(other.PlotWithLineweights());
    record.ScaleLineWeights = BoolToBit(other.ScaleLineWeights());
    record.PlotViewportBorders = BoolToBit(other.PlotViewportBorders());
}

} // namespace

void cAcadPageSetup::IAcadPageSetup_CopyFrom(IAcadPageSetup& other)
{
    PageSetupRecord record;
    CopyNamesAndCodes(other, record);
    CopyLengths(other, record);
    CopyFlags(other, record);
    MendScale(record);
    m_Record = record;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetStandardMedia(std::int32_t index)
{
    std::vector<PaperSize> table;
    m_Changed = true;
    if (index < 0 || index >= LoadPaperTable(table))
        return;
    const PaperSize& row = table[static_cast<std::size_t>(index)];
    m_Record.CanonicalMediaName = row.CanonicalMediaName;
    m_Record.LocaleMedianame = row.LocaleMedianame;
    m_Record.PaperWidth = row.Width;
    m_Record.PaperHeight = row.Height;
}

void cAcadPageSetup::IAcadPageSetup_SetCustomMedia(double width, double height, std::int32_t units)
{
    m_Record.PaperWidth = width;
    m_Record.PaperHeight = height;
    m_Record.PaperUnits = units;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotType(std::int32_t plotType)
{
    m_Record.PlotType = plotType;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetWindowToPlot(double llx, double lly, double urx, double ury)
{
    m_Record.WinLowerLeftX = llx;
    m_Record.WinLowerLeftY = lly;
    m_Record.WinUpperRightX = urx;
    m_Record.WinUpperRightY = ury;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotStyle(const std::string& name)
{
    m_Record.StyleSheet = name;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetViewToPlot(const std::string& name)
{
    m_Record.ViewToPlot = name;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotOffset(VariantBool center, double x, double y, std::int32_t units)
{
    const double unit = units == kInches ? kMillimetresPerInch : 1;
    m_Record.CenterPlot = BoolToBit(center);
    m_Record.PlotOriginX = x * unit;
    m_Record.PlotOriginY = y * unit;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetStandardScale(std::int32_t code)
{
    m_Record.StandardScale = code;
    m_Record.UseStandardScale = 1;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetCustomScale(double numerator, double denominator,
                                                   std::optional<std::int32_t> units)
{
    m_Record.ScaleNumer = numerator;
    m_Record.ScaleDenom = denominator;
    m_Record.UseStandardScale = 0;
    if (units)
        m_Record.PaperUnits = *units == kMillimetres ? kMillimetres : kInches;
    m_Changed = true;
}

void cAcadPageSetup::IAcadPageSetup_SetPlotOptions(VariantBool scaleLineWeights, VariantBool plotWithLineweights,
                                                   VariantBool plotWithPlotStyles, VariantBool plotViewportsFirst,
                                                   VariantBool plotHidden)
{
    m_Record.ScaleLineWeights = BoolToBit(scaleLineWeights);
    m_Record.PlotWithLineweights = BoolToBit(plotWithLineweights);
    m_Record.PlotWithPlotStyles = BoolToBit(plotWithPlotStyles);
    m_Record.PlotViewportsFirst = BoolToBit(plotViewportsFirst);
    m_Record.PlotHidden = BoolToBit(plotHidden);
    m_Changed = true;
}

} // namespace sm
