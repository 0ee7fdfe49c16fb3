// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/HostError.h"
#include "windows/automation/AutomationObject.h"
#include "windows/automation/Values.h"
#include "windows/objects/CallGuard.h"
#include "windows/objects/Handed.h"

namespace sm::windows {
namespace {

/// Reads the properties of a page setup object into the fields of a record.
class Reader {
public:
    explicit Reader(IDispatch* setup) : m_setup(setup) {}
    Reader& Text(std::string_view name, std::string& field)
    {
        field = ToText(m_setup.Call(name).Raw());
        return *this;
    }
    Reader& Number(std::string_view name, double& field)
    {
        field = ToDouble(m_setup.Call(name).Raw());
        return *this;
    }
    Reader& Integer(std::string_view name, std::int32_t& field)
    {
        field = ToInteger(m_setup.Call(name).Raw());
        return *this;
    }
    Reader& Flag(std::string_view name, std::int32_t& field)
    {
        field = ToBoolean(m_setup.Call(name).Raw()) ? 1 : 0;
        return *this;
    }

private:
    AutomationObject m_setup;
};

PageSetupRecord Read(IDispatch* setup)
{
    PageSetupRecord record;
    Reader(setup)
        .Text("CanonicalMediaName", record.CanonicalMediaName)
        .Text("LocaleMedianame", record.LocaleMedianame)
        .Number("PaperWidth", record.PaperWidth)
        .Number("PaperHeight", record.PaperHeight)
        .Integer("PlotRotation", record.PlotRotation)
        .Integer("PlotType", record.PlotType)
        .Flag("CenterPlot", record.CenterPlot)
        .Number("PlotOriginX", record.PlotOriginX)
        .Number("PlotOriginY", record.PlotOriginY)
        .Flag("UseStandardScale", record.UseStandardScale)
        .Integer("StandardScale", record.StandardScale)
        .Number("ScaleNumer", record.ScaleNumer)
        .Number("ScaleDenom", record.ScaleDenom)
        .Integer("PaperUnits", record.PaperUnits)
        .Flag("PlotWithPlotStyles", record.PlotWithPlotStyles)
        .Text("StyleSheet", record.StyleSheet)
        .Flag("ShowPlotStyles", record.ShowPlotStyles)
        .Flag("PlotHidden", record.PlotHidden)
        .Flag("PlotViewportsFirst", record.PlotViewportsFirst)
        .Flag("PlotWithLineweights", record.PlotWithLineweights)
        .Flag("ScaleLineWeights", record.ScaleLineWeights)
        .Flag("PlotViewportBorders", record.PlotViewportBorders)
        .Number("WinLowerLeftX", record.WinLowerLeftX)
        .Number("WinLowerLeftY", record.WinLowerLeftY)
        .Number("WinUpperRightX", record.WinUpperRightX)
        .Number("WinUpperRightY", record.WinUpperRightY)
        .Text("ViewToPlot", record.ViewToPlot);
    return record;
}

} // namespace

PageSetupRecord HandedPageSetup(IDispatch* setup)
{
    if (setup == nullptr)
        throw BadArgument(E_INVALIDARG, "No page setup was given");
    try {
        return Read(setup);
    } catch (const HostError& error) {
        throw BadArgument(E_INVALIDARG, "The object given is no page setup: " + error.Description());
    }
}

} // namespace sm::windows
