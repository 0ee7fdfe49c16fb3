// SPDX-License-Identifier: GPL-3.0-or-later
// A page setup object, as other programs see it.
#pragma once

#include "hostobjects/cAcadPageSetup.h"
#include "windows/WindowsSurroundings.h"
#include "windows/objects/DualObject.h"
#include "windows/objects/Identities.h"

#include <TarnwickSmPubAcad.h>

namespace sm::windows {

class PageSetupObject final : public DualObject<::IAcadPageSetup> {
public:
    /// A page setup that isn't bound yet.
    PageSetupObject();
    /// The page setup of another object, which `keeper` keeps together with what it stands on.
    PageSetupObject(std::shared_ptr<sm::IAcadPageSetup> setup, IUnknown* keeper);

    STDMETHODIMP Initialize(LONG source, IDispatch** document, VARIANT_BOOL* taken) override;
    STDMETHODIMP Update() override;
    STDMETHODIMP Restore() override;
    STDMETHODIMP ShowPageSetup() override;
    STDMETHODIMP CopyFrom(IDispatch* other) override;
    STDMETHODIMP SetStandardMedia(LONG index) override;
    STDMETHODIMP SetCustomMedia(double width, double height, LONG units) override;
    STDMETHODIMP SetPlotType(LONG plotType) override;
    STDMETHODIMP SetWindowToPlot(double lowerLeftX, double lowerLeftY, double upperRightX, double upperRightY) override;
    STDMETHODIMP SetPlotStyle(BSTR name) override;
    STDMETHODIMP SetViewToPlot(BSTR name) override;
    STDMETHODIMP SetPlotOffset(VARIANT_BOOL center, double x, double y, LONG units) override;
    STDMETHODIMP SetStandardScale(LONG code) override;
    STDMETHODIMP SetCustomScale(double numerator, double denominator, VARIANT units) override;
    STDMETHODIMP SetPlotOptions(VARIANT_BOOL scaleLineWeights, VARIANT_BOOL plotWithLineweights,
                                VARIANT_BOOL plotWithPlotStyles, VARIANT_BOOL plotViewportsFirst,
                                VARIANT_BOOL plotHidden) override;

    STDMETHODIMP get_CanonicalMediaName(BSTR* value) override;
    STDMETHODIMP get_LocaleMedianame(BSTR* value) override;
    STDMETHODIMP get_PaperWidth(double* value) override;
    STDMETHODIMP get_PaperHeight(double* value) override;
    STDMETHODIMP get_PlotRotation(LONG* value) override;
    STDMETHODIMP get_PlotType(LONG* value) override;
    STDMETHODIMP get_CenterPlot(VARIANT_BOOL* value) override;
    STDMETHODIMP get_PlotOriginX(double* value) override;
    STDMETHODIMP get_PlotOriginY(double* value) override;
    STDMETHODIMP get_UseStandardScale(VARIANT_BOOL* value) override;
    STDMETHODIMP get_StandardScale(LONG* value) override;
    STDMETHODIMP get_ScaleNumer(double* value) override;
    STDMETHODIMP get_ScaleDenom(double* value) override;
    STDMETHODIMP get_PaperUnits(LONG* value) override;
    STDMETHODIMP get_PlotWithPlotStyles(VARIANT_BOOL* value) override;
    STDMETHODIMP get_StyleSheet(BSTR* value) override;
    STDMETHODIMP get_ShowPlotStyles(VARIANT_BOOL* value) override;
    STDMETHODIMP get_PlotHidden(VARIANT_BOOL* value) override;
    STDMETHODIMP get_PlotViewportsFirst(VARIANT_BOOL* value) override;
    STDMETHODIMP get_PlotWithLineweights(VARIANT_BOOL* value) override;
    STDMETHODIMP get_ScaleLineWeights(VARIANT_BOOL* value) override;
    STDMETHODIMP get_PlotViewportBorders(VARIANT_BOOL* value) override;
    STDMETHODIMP get_WinLowerLeftX(double* value) override;
    STDMETHODIMP get_WinLowerLeftY(double* value) override;
    STDMETHODIMP get_WinUpperRightX(double* value) override;
    STDMETHODIMP get_WinUpperRightY(double* value) override;
    STDMETHODIMP get_ViewToPlot(BSTR* value) override;

private:
    const char* SourceName() const override { return SM_PAGE_SETUP_PROG_ID; }

    std::unique_ptr<WindowsSurroundings> m_surroundings; ///< null for the page setup of another object
    ComRef<IUnknown> m_keeper;
    std::shared_ptr<sm::IAcadPageSetup> m_setup;
    bool m_working = false;
};

} // namespace sm::windows
