// One page setup, bound to a drawing's own or to the user's global one.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IAcadPageSetup.h"
#include "settings/PageSetupRecord.h"

#include <memory>

namespace sm {

class cAcadPageSetup : public IAcadPageSetup {
public:
    /// Made inside a call of the plug-in, whose context must outlive the object.
    explicit cAcadPageSetup(CallContext& context);
    /// Made by the front end: a context of its own, without an open log. `surroundings` must outlive the object.
    explicit cAcadPageSetup(Surroundings& surroundings);
    cAcadPageSetup(const cAcadPageSetup&) = delete;
    cAcadPageSetup& operator=(const cAcadPageSetup&) = delete;

    /// The record as edited so far.
    [[nodiscard]] const PageSetupRecord& Record() const { return m_Record; }
    /// True when `Update` has something to write.
    [[nodiscard]] bool IsChanged() const { return m_Changed; }

    std::string CanonicalMediaName() override { return m_Record.CanonicalMediaName; }
    std::string LocaleMedianame() override { return m_Record.LocaleMedianame; }
    double PaperWidth() override { return m_Record.PaperWidth; }
    double PaperHeight() override { return m_Record.PaperHeight; }
    std::int32_t PlotRotation() override { return m_Record.PlotRotation; }
    std::int32_t PlotType() override { return m_Record.PlotType; }
    VariantBool CenterPlot() override { return Flag(m_Record.CenterPlot); }
    double PlotOriginX() override { return m_Record.PlotOriginX; }
    double PlotOriginY() override { return m_Record.PlotOriginY; }
    VariantBool UseStandardScale() override { return Flag(m_Record.UseStandardScale); }
    std::int32_t StandardScale() override { return m_Record.StandardScale; }
    double ScaleNumer() override { return m_Record.ScaleNumer; }
    double ScaleDenom() override { return m_Record.ScaleDenom; }
    std::int32_t PaperUnits() override { return m_Record.PaperUnits; }
    VariantBool PlotWithPlotStyles() override { return Flag(m_Record.PlotWithPlotStyles); }
    std::string StyleSheet() override { return m_Record.StyleSheet; }
    VariantBool ShowPlotStyles() override { return Flag(m_Record.ShowPlotStyles); }
    VariantBool PlotHidden() override { return Flag(m_Record.PlotHidden); }
    VariantBool PlotViewportsFirst() override { return Flag(m_Record.PlotViewportsFirst); }
    VariantBool PlotWithLineweights() override { return Flag(m_Record.PlotWithLineweights); }
    VariantBool ScaleLineWeights() override { return Flag(m_Record.ScaleLineWeights); }
    VariantBool PlotViewportBorders() override { return Flag(m_Record.PlotViewportBorders); }
    double WinLowerLeftX() override { return m_Record.WinLowerLeftX; }
    double WinLowerLeftY() override { return m_Record.WinLowerLeftY; }
    double WinUpperRightX() override { return m_Record.WinUpperRightX; }
    double WinUpperRightY() override { return m_Record.WinUpperRightY; }
    std::string ViewToPlot() override { return m_Record.ViewToPlot; }

private:
    static VariantBool Flag(std::int32_t value) { return value != 0 ? kTrue : kFalse; }

    VariantBool IAcadPageSetup_Initialize(std::int32_t source, std::shared_ptr<IAcadDocument>& document) override;
    void IAcadPageSetup_Update() override;
    void IAcadPageSetup_Restore() override;
    void IAcadPageSetup_ShowPageSetup() override;
    void IAcadPageSetup_CopyFrom(IAcadPageSetup& other) override;
    void IAcadPageSetup_SetStandardMedia(std::int32_t index) override;
    void IAcadPageSetup_SetCustomMedia(double width, double height, std::int32_t units) override;
    void IAcadPageSetup_SetPlotType(std::int32_t plotType) override;
    void IAcadPageSetup_SetWindowToPlot(double llx, double lly, double urx, double ury) override;
    void IAcadPageSetup_SetPlotStyle(const std::string& name) override;
    void IAcadPageSetup_SetViewToPlot(const std::string& name) override;
    void IAcadPageSetup_SetPlotOffset(VariantBool center, double x, double y, std::int32_t units) override;
    void IAcadPageSetup_SetStandardScale(std::int32_t code) override;
    void IAcadPageSetup_SetCustomScale(double numerator, double denominator,
                                       std::optional<std::int32_t> units) override;
    void IAcadPageSetup_SetPlotOptions(VariantBool scaleLineWeights, VariantBool plotWithLineweights,
                                       VariantBool plotWithPlotStyles, VariantBool plotViewportsFirst,
                                       VariantBool plotHidden) override;

    bool ReadRecord(std::int32_t source, const std::shared_ptr<IAcadDocument>& document, PageSetupRecord& record);

    std::unique_ptr<CallContext> m_OwnContext; ///< null inside a call of the plug-in
    CallContext& m_Context;
    PageSetupRecord m_Record;
    PageSetupRecord m_Saved;                   ///< as read by `Initialize`
    std::shared_ptr<IAcadDocument> m_Document; ///< set for the drawing's page setup only
    std::int32_t m_Source = kPageSetupNative;  ///< until `Initialize`: nothing to write or show
    bool m_Changed = false;
};

} // namespace sm
