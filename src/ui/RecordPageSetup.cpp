#include "ui/RecordPageSetup.h"

namespace sm {
namespace {

class RecordPageSetup final : public IAcadPageSetup {
public:
    explicit RecordPageSetup(const PageSetupRecord& record) : m_record(record) {}

    std::string CanonicalMediaName() override { return m_record.CanonicalMediaName; }
    std::string LocaleMedianame() override { return m_record.LocaleMedianame; }
    double PaperWidth() override { return m_record.PaperWidth; }
    double PaperHeight() override { return m_record.PaperHeight; }
    std::int32_t PlotRotation() override { return m_record.PlotRotation; }
    std::int32_t PlotType() override { return m_record.PlotType; }
    VariantBool CenterPlot() override { return Flag(m_record.CenterPlot); }
    double PlotOriginX() override { return m_record.PlotOriginX; }
    double PlotOriginY() override { return m_record.PlotOriginY; }
    VariantBool UseStandardScale() override { return Flag(m_record.UseStandardScale); }
    std::int32_t StandardScale() override { return m_record.StandardScale; }
    double ScaleNumer() override { return m_record.ScaleNumer; }
    double ScaleDenom() override { return m_record.ScaleDenom; }
    std::int32_t PaperUnits() override { return m_record.PaperUnits; }
    VariantBool PlotWithPlotStyles() override { return Flag(m_record.PlotWithPlotStyles); }
    std::string StyleSheet() override { return m_record.StyleSheet; }
    VariantBool ShowPlotStyles() override { return Flag(m_record.ShowPlotStyles); }
    VariantBool PlotHidden() override { return Flag(m_record.PlotHidden); }
    VariantBool PlotViewportsFirst() override { return Flag(m_record.PlotViewportsFirst); }
    VariantBool PlotWithLineweights() override { return Flag(m_record.PlotWithLineweights); }
    VariantBool ScaleLineWeights() override { return Flag(m_record.ScaleLineWeights); }
    VariantBool PlotViewportBorders() override { return Flag(m_record.PlotViewportBorders); }
    double WinLowerLeftX() override { return m_record.WinLowerLeftX; }
    double WinLowerLeftY() override { return m_record.WinLowerLeftY; }
    double WinUpperRightX() override { return m_record.WinUpperRightX; }
    double WinUpperRightY() override { return m_record.WinUpperRightY; }
    std::string ViewToPlot() override { return m_record.ViewToPlot; }

private:
    static VariantBool Flag(std::int32_t value) { return value != 0 ? kTrue : kFalse; }

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

    PageSetupRecord m_record;
};

std::int32_t Bit(VariantBool flag)
{
    return flag != kFalse ? 1 : 0;
}

void ReadFlags(IAcadPageSetup& setup, PageSetupRecord& record)
{
    record.CenterPlot = Bit(setup.CenterPlot());
    record.UseStandardScale = Bit(setup.UseStandardScale());
    record.PlotWithPlotStyles = Bit(setup.PlotWithPlotStyles());
    record.ShowPlotStyles = Bit(setup.ShowPlotStyles());
    record.PlotHidden = Bit(setup.PlotHidden());
    record.PlotViewportsFirst = Bit(setup.PlotViewportsFirst());
    record.PlotWithLineweights = Bit(setup.PlotWithLineweights());
    record.ScaleLineWeights = Bit(setup.ScaleLineWeights());
    record.PlotViewportBorders = Bit(setup.PlotViewportBorders());
}

} // namespace

std::unique_ptr<IAcadPageSetup> MakeRecordPageSetup(const PageSetupRecord& record)
{
    return std::make_unique<RecordPageSetup>(record);
}

PageSetupRecord RecordOf(IAcadPageSetup& setup)
{
    PageSetupRecord record;
    record.CanonicalMediaName = setup.CanonicalMediaName();
    record.LocaleMedianame = setup.LocaleMedianame();
    record.PaperWidth = setup.PaperWidth();
    record.PaperHeight = setup.PaperHeight();
    record.PlotRotation = setup.PlotRotation();
    record.PlotType = setup.PlotType();
    record.PlotOriginX = setup.PlotOriginX();
    record.PlotOriginY = setup.PlotOriginY();
    record.StandardScale = setup.StandardScale();
    record.ScaleNumer = setup.ScaleNumer();
    record.ScaleDenom = setup.ScaleDenom();
    record.PaperUnits = setup.PaperUnits();
    record.StyleSheet = setup.StyleSheet();
    record.WinLowerLeftX = setup.WinLowerLeftX();
    record.WinLowerLeftY = setup.WinLowerLeftY();
    record.WinUpperRightX = setup.WinUpperRightX();
    record.WinUpperRightY = setup.WinUpperRightY();
    record.ViewToPlot = setup.ViewToPlot();
    ReadFlags(setup, record);
    return record;
}

} // namespace sm
