// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostobjects/RecordPageSetup.h"

#include "settings/mdlUtilities.h"

namespace sm {
namespace {

class ReadOnlyPageSetup final : public RecordPageSetup {
public:
    explicit ReadOnlyPageSetup(const PageSetupRecord& record) : RecordPageSetup(record) {}

private:
    VariantBool IAcadPageSetup_Initialize(std::int32_t, std::shared_ptr<IAcadDocument>&) override { return kFalse; }
    void IAcadPageSetup_Update() override {}
    void IAcadPageSetup_Restore() override {}
    void IAcadPageSetup_ShowPageSetup() override {}
    void IAcadPageSetup_CopyFrom(IAcadPageSetup&) override {}
    void IAcadPageSetup_SetStandardMedia(std::int32_t) override {}
    void IAcadPageSetup_SetCustomMedia(double, double, std::int32_t) override {}
    void IAcadPageSetup_SetPlotType(std::int32_t) override {}
    void IAcadPageSetup_SetWindowToPlot(double, double, double, double) override {}
    void IAcadPageSetup_SetPlotStyle(const std::string&) override {}
    void IAcadPageSetup_SetViewToPlot(const std::string&) override {}
    void IAcadPageSetup_SetPlotOffset(VariantBool, double, double, std::int32_t) override {}
    void IAcadPageSetup_SetStandardScale(std::int32_t) override {}
    void IAcadPageSetup_SetCustomScale(double, double, std::optional<std::int32_t>) override {}
    void IAcadPageSetup_SetPlotOptions(VariantBool, VariantBool, VariantBool, VariantBool, VariantBool) override {}
};

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

std::unique_ptr<IAcadPageSetup> MakeRecordPageSetup(const PageSetupRecord& record)
{
    return std::make_unique<ReadOnlyPageSetup>(record);
}

PageSetupRecord RecordOf(IAcadPageSetup& setup)
{
    PageSetupRecord record;
    CopyNamesAndCodes(setup, record);
    CopyLengths(setup, record);
    CopyFlags(setup, record);
    return record;
}

} // namespace sm
