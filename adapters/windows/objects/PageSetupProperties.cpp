// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/PageSetupObject.h"

namespace sm::windows {

STDMETHODIMP PageSetupObject::get_CanonicalMediaName(BSTR* value)
{
    return Give(value, [&] { return m_setup->CanonicalMediaName(); });
}

STDMETHODIMP PageSetupObject::get_LocaleMedianame(BSTR* value)
{
    return Give(value, [&] { return m_setup->LocaleMedianame(); });
}

STDMETHODIMP PageSetupObject::get_PaperWidth(double* value)
{
    return Give(value, [&] { return m_setup->PaperWidth(); });
}

STDMETHODIMP PageSetupObject::get_PaperHeight(double* value)
{
    return Give(value, [&] { return m_setup->PaperHeight(); });
}

STDMETHODIMP PageSetupObject::get_PlotRotation(LONG* value)
{
    return Give(value, [&] { return m_setup->PlotRotation(); });
}

STDMETHODIMP PageSetupObject::get_PlotType(LONG* value)
{
    return Give(value, [&] { return m_setup->PlotType(); });
}

STDMETHODIMP PageSetupObject::get_CenterPlot(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->CenterPlot(); });
}

STDMETHODIMP PageSetupObject::get_PlotOriginX(double* value)
{
    return Give(value, [&] { return m_setup->PlotOriginX(); });
}

STDMETHODIMP PageSetupObject::get_PlotOriginY(double* value)
{
    return Give(value, [&] { return m_setup->PlotOriginY(); });
}

STDMETHODIMP PageSetupObject::get_UseStandardScale(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->UseStandardScale(); });
}

STDMETHODIMP PageSetupObject::get_StandardScale(LONG* value)
{
    return Give(value, [&] { return m_setup->StandardScale(); });
}

STDMETHODIMP PageSetupObject::get_ScaleNumer(double* value)
{
    return Give(value, [&] { return m_setup->ScaleNumer(); });
}

STDMETHODIMP PageSetupObject::get_ScaleDenom(double* value)
{
    return Give(value, [&] { return m_setup->ScaleDenom(); });
}

STDMETHODIMP PageSetupObject::get_PaperUnits(LONG* value)
{
    return Give(value, [&] { return m_setup->PaperUnits(); });
}

STDMETHODIMP PageSetupObject::get_PlotWithPlotStyles(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->PlotWithPlotStyles(); });
}

STDMETHODIMP PageSetupObject::get_StyleSheet(BSTR* value)
{
    return Give(value, [&] { return m_setup->StyleSheet(); });
}

STDMETHODIMP PageSetupObject::get_ShowPlotStyles(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->ShowPlotStyles(); });
}

STDMETHODIMP PageSetupObject::get_PlotHidden(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->PlotHidden(); });
}

STDMETHODIMP PageSetupObject::get_PlotViewportsFirst(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->PlotViewportsFirst(); });
}

STDMETHODIMP PageSetupObject::get_PlotWithLineweights(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->PlotWithLineweights(); });
}

STDMETHODIMP PageSetupObject::get_ScaleLineWeights(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->ScaleLineWeights(); });
}

STDMETHODIMP PageSetupObject::get_PlotViewportBorders(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_setup->PlotViewportBorders(); });
}

STDMETHODIMP PageSetupObject::get_WinLowerLeftX(double* value)
{
    return Give(value, [&] { return m_setup->WinLowerLeftX(); });
}

STDMETHODIMP PageSetupObject::get_WinLowerLeftY(double* value)
{
    return Give(value, [&] { return m_setup->WinLowerLeftY(); });
}

STDMETHODIMP PageSetupObject::get_WinUpperRightX(double* value)
{
    return Give(value, [&] { return m_setup->WinUpperRightX(); });
}

STDMETHODIMP PageSetupObject::get_WinUpperRightY(double* value)
{
    return Give(value, [&] { return m_setup->WinUpperRightY(); });
}

STDMETHODIMP PageSetupObject::get_ViewToPlot(BSTR* value)
{
    return Give(value, [&] { return m_setup->ViewToPlot(); });
}

} // namespace sm::windows
