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
    [[nodiscard]] const PageSetupRecord& Record() const { return m_record; }
    /// True when `Update` has something to write.
    [[nodiscard]] bool IsChanged() const { return m_changed; }

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

    std::unique_ptr<CallContext> m_ownContext; ///< null inside a call of the plug-in
    CallContext& m_context;
    PageSetupRecord m_record;
    PageSetupRecord m_saved;                   ///< as read by `Initialize`
    std::shared_ptr<IAcadDocument> m_document; ///< set for the drawing's page setup only
    std::int32_t m_source = kPageSetupNative;  ///< until `Initialize`: nothing to write or show
    bool m_changed = false;
};

} // namespace sm
