// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/PageSetupObject.h"

#include "hostobjects/RecordPageSetup.h"
#include "ports/HostError.h"
#include "windows/automation/Values.h"
#include "windows/host/AutomationHost.h"
#include "windows/objects/Handed.h"
#include "windows/objects/Working.h"

namespace sm::windows {
namespace {

/// The optional units of a scale; nothing when they were left out.
std::optional<std::int32_t> OptionalUnits(const VARIANT& units)
{
    if (V_VT(&units) == VT_ERROR && V_ERROR(&units) == DISP_E_PARAMNOTFOUND)
        return std::nullopt;
    try {
        return ToInteger(units);
    } catch (const HostError&) {
        throw BadArgument(DISP_E_TYPEMISMATCH, "The units of a scale are a whole number");
    }
}

} // namespace

PageSetupObject::PageSetupObject()
    : m_surroundings(std::make_unique<WindowsSurroundings>()),
      m_setup(std::make_shared<sm::cAcadPageSetup>(m_surroundings->All()))
{
}

PageSetupObject::PageSetupObject(std::shared_ptr<sm::IAcadPageSetup> setup, IUnknown* keeper)
    : m_keeper(keeper), m_setup(std::move(setup))
{
}

STDMETHODIMP PageSetupObject::Initialize(LONG source, IDispatch** document, VARIANT_BOOL* taken)
{
    return Give(taken, [&] {
        // The document that is handed back is always the one that was given: its place is left alone.
        auto handed = HandedDocument(document == nullptr ? nullptr : *document);
        return m_setup->Initialize(source, handed);
    });
}

STDMETHODIMP PageSetupObject::Update()
{
    return Guard([&] { m_setup->Update(); });
}

STDMETHODIMP PageSetupObject::Restore()
{
    return Guard([&] { m_setup->Restore(); });
}

STDMETHODIMP PageSetupObject::ShowPageSetup()
{
    return Guard([&] {
        const Working working(m_working);
        if (working)
            m_setup->ShowPageSetup();
    });
}

STDMETHODIMP PageSetupObject::CopyFrom(IDispatch* other)
{
    return Guard([&] { m_setup->CopyFrom(*MakeRecordPageSetup(HandedPageSetup(other))); });
}

STDMETHODIMP PageSetupObject::SetStandardMedia(LONG index)
{
    return Guard([&] { m_setup->SetStandardMedia(index); });
}

STDMETHODIMP PageSetupObject::SetCustomMedia(double width, double height, LONG units)
{
    return Guard([&] { m_setup->SetCustomMedia(width, height, units); });
}

STDMETHODIMP PageSetupObject::SetPlotType(LONG plotType)
{
    return Guard([&] { m_setup->SetPlotType(plotType); });
}

STDMETHODIMP PageSetupObject::SetWindowToPlot(double lowerLeftX, double lowerLeftY, double upperRightX,
                                              double upperRightY)
{
    return Guard([&] { m_setup->SetWindowToPlot(lowerLeftX, lowerLeftY, upperRightX, upperRightY); });
}

STDMETHODIMP PageSetupObject::SetPlotStyle(BSTR name)
{
    return Guard([&] { m_setup->SetPlotStyle(TextOf(name)); });
}

STDMETHODIMP PageSetupObject::SetViewToPlot(BSTR name)
{
    return Guard([&] { m_setup->SetViewToPlot(TextOf(name)); });
}

STDMETHODIMP PageSetupObject::SetPlotOffset(VARIANT_BOOL center, double x, double y, LONG units)
{
    return Guard([&] { m_setup->SetPlotOffset(center, x, y, units); });
}

STDMETHODIMP PageSetupObject::SetStandardScale(LONG code)
{
    return Guard([&] { m_setup->SetStandardScale(code); });
}

STDMETHODIMP PageSetupObject::SetCustomScale(double numerator, double denominator, VARIANT units)
{
    return Guard([&] { m_setup->SetCustomScale(numerator, denominator, OptionalUnits(units)); });
}

STDMETHODIMP PageSetupObject::SetPlotOptions(VARIANT_BOOL scaleLineWeights, VARIANT_BOOL plotWithLineweights,
                                             VARIANT_BOOL plotWithPlotStyles, VARIANT_BOOL plotViewportsFirst,
                                             VARIANT_BOOL plotHidden)
{
    return Guard([&] {
        m_setup->SetPlotOptions(scaleLineWeights, plotWithLineweights, plotWithPlotStyles, plotViewportsFirst,
                                plotHidden);
    });
}

} // namespace sm::windows
