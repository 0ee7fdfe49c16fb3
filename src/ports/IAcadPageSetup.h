// SPDX-License-Identifier: GPL-3.0-or-later
// The interface by which the publishing library reads and edits one page setup. No operation throws.
#pragma once

#include "ports/IAcadDocument.h"
#include "ports/PlotNumbers.h"

#include <optional>

namespace sm {

class IAcadPageSetup {
public:
    virtual ~IAcadPageSetup() = default;
    /// `source` is a PageSetupSource: custom with a document, or global. False for any other source or a host error.
    VariantBool Initialize(std::int32_t source, std::shared_ptr<IAcadDocument>& document)
    {
        return IAcadPageSetup_Initialize(source, document);
    }
    /// Writes the record back when it was changed; a successful write clears the changed flag.
    void Update() { IAcadPageSetup_Update(); }
    void Restore() { IAcadPageSetup_Restore(); }
    void ShowPageSetup() { IAcadPageSetup_ShowPageSetup(); }
    void CopyFrom(IAcadPageSetup& other) { IAcadPageSetup_CopyFrom(other); }
    void SetStandardMedia(std::int32_t index) { IAcadPageSetup_SetStandardMedia(index); }
    void SetCustomMedia(double width, double height, std::int32_t units)
    {
        IAcadPageSetup_SetCustomMedia(width, height, units);
    }
    void SetPlotType(std::int32_t plotType) { IAcadPageSetup_SetPlotType(plotType); }
    void SetWindowToPlot(double lowerLeftX, double lowerLeftY, double upperRightX, double upperRightY)
    {
        IAcadPageSetup_SetWindowToPlot(lowerLeftX, lowerLeftY, upperRightX, upperRightY);
    }
    void SetPlotStyle(const std::string& name) { IAcadPageSetup_SetPlotStyle(name); }
    void SetViewToPlot(const std::string& name) { IAcadPageSetup_SetViewToPlot(name); }
    void SetPlotOffset(VariantBool center, double x, double y, std::int32_t units)
    {
        IAcadPageSetup_SetPlotOffset(center, x, y, units);
    }
    void SetStandardScale(std::int32_t code) { IAcadPageSetup_SetStandardScale(code); }
    void SetCustomScale(double numerator, double denominator, std::optional<std::int32_t> units = std::nullopt)
    {
        IAcadPageSetup_SetCustomScale(numerator, denominator, units);
    }
    void SetPlotOptions(VariantBool scaleLineWeights, VariantBool plotWithLineweights, VariantBool plotWithPlotStyles,
                        VariantBool plotViewportsFirst, VariantBool plotHidden)
    {
        IAcadPageSetup_SetPlotOptions(scaleLineWeights, plotWithLineweights, plotWithPlotStyles, plotViewportsFirst,
                                      plotHidden);
    }

    // Read-only properties; lengths in millimetres, window in drawing units.
    virtual std::string CanonicalMediaName() = 0;
    virtual std::string LocaleMedianame() = 0;
    virtual double PaperWidth() = 0;
    virtual double PaperHeight() = 0;
    virtual std::int32_t PlotRotation() = 0;
    virtual std::int32_t PlotType() = 0;
    virtual VariantBool CenterPlot() = 0;
    virtual double PlotOriginX() = 0;
    virtual double PlotOriginY() = 0;
    virtual VariantBool UseStandardScale() = 0;
    virtual std::int32_t StandardScale() = 0;
    virtual double ScaleNumer() = 0;
    virtual double ScaleDenom() = 0;
    virtual std::int32_t PaperUnits() = 0;
    virtual VariantBool PlotWithPlotStyles() = 0;
    virtual std::string StyleSheet() = 0;
    virtual VariantBool ShowPlotStyles() = 0;
    virtual VariantBool PlotHidden() = 0;
    virtual VariantBool PlotViewportsFirst() = 0;
    virtual VariantBool PlotWithLineweights() = 0;
    virtual VariantBool ScaleLineWeights() = 0;
    virtual VariantBool PlotViewportBorders() = 0;
    virtual double WinLowerLeftX() = 0;
    virtual double WinLowerLeftY() = 0;
    virtual double WinUpperRightX() = 0;
    virtual double WinUpperRightY() = 0;
    virtual std::string ViewToPlot() = 0;

private:
    virtual VariantBool IAcadPageSetup_Initialize(std::int32_t source, std::shared_ptr<IAcadDocument>& document) = 0;
    virtual void IAcadPageSetup_Update() = 0;
    virtual void IAcadPageSetup_Restore() = 0;
    virtual void IAcadPageSetup_ShowPageSetup() = 0;
    virtual void IAcadPageSetup_CopyFrom(IAcadPageSetup& other) = 0;
    virtual void IAcadPageSetup_SetStandardMedia(std::int32_t index) = 0;
    virtual void IAcadPageSetup_SetCustomMedia(double width, double height, std::int32_t units) = 0;
    virtual void IAcadPageSetup_SetPlotType(std::int32_t plotType) = 0;
    virtual void IAcadPageSetup_SetWindowToPlot(double llx, double lly, double urx, double ury) = 0;
    virtual void IAcadPageSetup_SetPlotStyle(const std::string& name) = 0;
    virtual void IAcadPageSetup_SetViewToPlot(const std::string& name) = 0;
    virtual void IAcadPageSetup_SetPlotOffset(VariantBool center, double x, double y, std::int32_t units) = 0;
    virtual void IAcadPageSetup_SetStandardScale(std::int32_t code) = 0;
    virtual void IAcadPageSetup_SetCustomScale(double numerator, double denominator,
                                               std::optional<std::int32_t> units) = 0;
    virtual void IAcadPageSetup_SetPlotOptions(VariantBool scaleLineWeights, VariantBool plotWithLineweights,
                                               VariantBool plotWithPlotStyles, VariantBool plotViewportsFirst,
                                               VariantBool plotHidden) = 0;
};

} // namespace sm
