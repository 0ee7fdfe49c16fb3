// SPDX-License-Identifier: GPL-3.0-or-later
// Plotter and medium of a plot configuration.
#include "plotting/PlotConfig.h"

#include "plotting/PostScriptDriver.h"
#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadApplication.h"
#include "settings/mdlUtilities.h"

#include <algorithm>

namespace sm {
namespace {

bool Holds(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

PlotConfig::StepResult PlotConfig::ChoosePlotter()
{
    if (!m_restore) {
        const auto preferences = HostPreferences(m_context);
        Trace("  PrinterConfigPath: " + preferences->PrinterConfigPath());
        Trace("  DriversPath: " + preferences->DriversPath());
    }
    m_layout.RefreshPlotDeviceInfo();
    const auto devices = CarryPast(m_context, "SetAcadPlotConfig", [&] { return m_layout.GetPlotDeviceNames(); });
    if (!devices || devices->empty())
        return kConfigNoPlotter;
    const bool found = Holds(*devices, m_record.ConfigName);
    if (DriverVersion(m_context) == "15" && (m_record.ConfigName == "None" || !found))
        return ReplacePlotterOfFirstGeneration(*devices);
    if (!found)
        ReplacePlotterByNone();
    return {};
}

/// This generation of the host can't select a missing PC3 file through automation.
PlotConfig::StepResult PlotConfig::ReplacePlotterOfFirstGeneration(const std::vector<std::string>& devices)
{
    Trace("  ConfigName: [Missing: " + m_record.ConfigName + " - Cannot set using Acad2000 ActiveX Interface]");
    if (devices.size() == 1) {
        TraceSkippedSettings(true);
        return kConfigNoPlotter;
    }
    Trace("   [Use Alternative ConfigName: " + devices.back() + "]");
    m_record.ConfigName = devices.back();
    TakeLayoutsMedia();
    return {};
}

void PlotConfig::ReplacePlotterByNone()
{
    Trace("  ConfigName: [Missing: " + m_record.ConfigName + "]");
    Trace("  CanonicalMediaName: [Original: " + m_record.CanonicalMediaName + "]");
    Trace("  PlotRotation: [Original: " + std::to_string(m_record.PlotRotation) + "]");
    m_record.ConfigName = "None";
    TakeLayoutsMedia();
}

void PlotConfig::TakeLayoutsMedia()
{
    m_record.CanonicalMediaName = m_layout.CanonicalMediaName();
    m_record.PlotRotation = m_layout.PlotRotation();
}

void PlotConfig::TraceSkippedSettings(bool mediaToo)
{
    Trace("   [Exiting without setting the following Plot Settings:]");
    if (mediaToo)
        Trace("   [CanonicalMediaName]");
    Trace("   [PlotRotation]");
    Trace("   [PaperUnits]");
    Trace("   [UseStandardScale]");
    Trace("   [StandardScale]");
    Trace("   [ScaleNumer]");
    Trace("   [ScaleDenom]");
}

PlotConfig::StepResult PlotConfig::SetPlotter()
{
    Trace("  ConfigName: " + m_record.ConfigName);
    const auto write = [&]() -> StepResult {
        m_layout.SetConfigName(m_record.ConfigName);
        m_layout.RefreshPlotDeviceInfo();
        return {};
    };
    return GiveUp(write, [&](const std::string& description) { return HostFailed(kConfigNoPlotter, description); });
}

PlotConfig::StepResult PlotConfig::SetMedia()
{
    return GiveUp([&] { return WriteMedia(); },
                  [&](const std::string& description) { return HostFailed(kConfigNoMedia, description); });
}

PlotConfig::StepResult PlotConfig::WriteMedia()
{
    const std::string& name = m_record.CanonicalMediaName;
    if (!Holds(m_layout.GetCanonicalMediaNames(), name)) {
        Trace("  CanonicalMediaName: [Missing: " + name + "]");
        TraceSkippedSettings(false);
        return kConfigNoMedia;
    }
    Trace("  CanonicalMediaName: " + name);
    if (!name.empty())
        m_layout.SetCanonicalMediaName(name);
    m_layout.RefreshPlotDeviceInfo();
    double width = 0, height = 0;
    m_layout.GetPaperSize(width, height);
    Trace("  PaperWidth: " + NumberText(width));
    Trace("  PaperHeigth: " + NumberText(height)); // spelled so in every log that the suite's support has seen
    return {};
}

PlotConfig::StepResult PlotConfig::SetRotation()
{
    Trace("  PlotRotation: " + std::to_string(m_record.PlotRotation));
    m_layout.SetPlotRotation(m_record.PlotRotation);
    return {};
}

} // namespace sm
