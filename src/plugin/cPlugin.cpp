// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/cPlugin.h"

#include "plugin/CallScope.h"
#include "plugin/CarryPast.h"
#include "plugin/ConvertToPdfDriver.h"
#include "plugin/RunTurn.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IPubDoc.h"
#include "ports/ISystem.h"
#include "ports/IWindows.h"
#include "settings/mdlWinReg.h"

namespace sm {

VariantBool cPlugin::IPlugin_Initialize(const std::shared_ptr<IAcadApplication>& app)
{
    if (app == nullptr)
        return kFalse;
    m_AcadApp = app;
    return kTrue;
}

void cPlugin::IPlugin_ConvertToPDF(std::int32_t hostValue)
{
    const RunTurn turn(m_context, "ConvertToPDF");
    if (!turn || !ValidateHost(m_context, kFalse, m_AcadApp))
        return;
    const CallScope call(m_context, m_AcadApp, CallScope::ClearFirst::Log);
    ConvertActiveDrawing(hostValue);
}

VariantBool cPlugin::IPlugin_ShowSettings(std::int32_t hostValue, std::int32_t /*second*/, std::int32_t /*third*/)
{
    const RunTurn turn(m_context, "ShowSettings");
    if (!turn || !ValidateHost(m_context, kFalse, m_AcadApp))
        return kFalse;
    // The log opens before the dialog, so that the lines the dialog writes land in it.
    const CallScope call(m_context, m_AcadApp, CallScope::ClearFirst::Host);
    if (m_context.surroundings.windows.ShowConversionSettings() == 1)
        ConvertActiveDrawing(hostValue);
    return kFalse;
}

void cPlugin::ConvertActiveDrawing(std::int32_t hostValue)
{
    const std::int32_t whatToPlot = WhatToPlot();
    const VariantBool promptForFileName = PromptForFileName();
    const VariantBool openInViewer = OpenInViewer();
    const VariantBool deletePs = DeletePs();
    const std::int32_t optimization = Optimization();
    const std::string jobOptionsFile = JobOptionsFile();
    ConvertToPdfDriver(m_context, hostValue, whatToPlot, promptForFileName, openInViewer, deletePs, optimization,
                       jobOptionsFile);
}

void cPlugin::IPlugin_ShowLog()
{
    const auto log = CarryPast(m_context, "ShowLog", [&] {
                         return m_context.surroundings.library.CreateConversionLog();
                     }).value_or(nullptr);
    bool shown = false;
    if (log != nullptr)
        shown = CarryPast(m_context, "ShowLog", [&] { return log->ShowLogFile(kLogFileName); }).value_or(false);
    if (!shown)
        ShowProductMessage(m_context, "A Log file has not yet been created.", MessageButtons::Ok, MessageIcon::Critical,
                           270);
}

std::string cPlugin::IPlugin_Version()
{
    const ComponentVersion version = m_context.surroundings.component.Version();
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." + std::to_string(version.revision);
}

VariantBool cPlugin::IPlugin_GetPromptForFileName()
{
    return ReadSwitch(SettingNamed("PromptForFileName"));
}

void cPlugin::IPlugin_SetPromptForFileName(VariantBool value)
{
    WriteSwitch(SettingNamed("PromptForFileName"), value);
}

VariantBool cPlugin::IPlugin_GetDeletePs()
{
    return ReadSwitch(SettingNamed("DeletePs"));
}

void cPlugin::IPlugin_SetDeletePs(VariantBool value)
{
    WriteSwitch(SettingNamed("DeletePs"), value);
}

VariantBool cPlugin::IPlugin_GetOpenInViewer()
{
    return ReadSwitch(SettingNamed("OpenInViewer"));
}

void cPlugin::IPlugin_SetOpenInViewer(VariantBool value)
{
    WriteSwitch(SettingNamed("OpenInViewer"), value);
}

std::int32_t cPlugin::IPlugin_GetWhatToPlot()
{
    return ReadIntegerSetting(m_context.surroundings, SettingNamed("WhatToPlot"));
}

void cPlugin::IPlugin_SetWhatToPlot(std::int32_t value)
{
    WriteZeroOrOne(SettingNamed("WhatToPlot"), value);
}

std::int32_t cPlugin::IPlugin_GetOptimization()
{
    return ReadIntegerSetting(m_context.surroundings, SettingNamed("Optimization"));
}

void cPlugin::IPlugin_SetOptimization(std::int32_t value)
{
    WriteZeroOrOne(SettingNamed("Optimization"), value);
}

std::string cPlugin::IPlugin_GetJobOptionsFile()
{
    return ReadTextSetting(m_context.surroundings, SettingNamed("JobOptionsFile"));
}

void cPlugin::IPlugin_SetJobOptionsFile(const std::string& value)
{
    // The suite's front end relies on this name being overwritten, "JobOptionsFile" staying as it is.
    WriteSetting(m_context.surroundings, SettingNamed("Optimization").name, value);
}

VariantBool cPlugin::ReadSwitch(const Setting& setting)
{
    return ReadBooleanSetting(m_context.surroundings, setting) ? kTrue : kFalse;
}

void cPlugin::WriteSwitch(const Setting& setting, VariantBool value)
{
    WriteSetting(m_context.surroundings, setting.name, value == kTrue);
}

void cPlugin::WriteZeroOrOne(const Setting& setting, std::int32_t value)
{
    WriteSetting(m_context.surroundings, setting.name, value == 1 ? value : std::int32_t{0});
}

} // namespace sm
