#include "plugin/cPlugin.h"

#include "plugin/CallScope.h"
#include "plugin/CarryPast.h"
#include "plugin/ConvertToPdfDriver.h"
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
    if (!ValidateHost(m_context, kFalse, m_AcadApp))
        return;
    const CallScope call(m_context, m_AcadApp, CallScope::ClearFirst::Log);
    ConvertActiveDrawing(hostValue);
}

VariantBool cPlugin::IPlugin_ShowSettings(std::int32_t hostValue, std::int32_t /*second*/, std::int32_t /*third*/)
{
    if (!ValidateHost(m_context, kFalse, m_AcadApp))
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
    return ReadSwitch("PromptForFileName");
}

void cPlugin::IPlugin_SetPromptForFileName(VariantBool value)
{
    WriteSwitch("PromptForFileName", value);
}

VariantBool cPlugin::IPlugin_GetDeletePs()
{
    return ReadSwitch("DeletePs");
}

void cPlugin::IPlugin_SetDeletePs(VariantBool value)
{
    WriteSwitch("DeletePs", value);
}

VariantBool cPlugin::IPlugin_GetOpenInViewer()
{
    return ReadSwitch("OpenInViewer");
}

void cPlugin::IPlugin_SetOpenInViewer(VariantBool value)
{
    WriteSwitch("OpenInViewer", value);
}

std::int32_t cPlugin::IPlugin_GetWhatToPlot()
{
    return ReadIntegerSetting(m_context.surroundings, "WhatToPlot", 0);
}

void cPlugin::IPlugin_SetWhatToPlot(std::int32_t value)
{
    WriteZeroOrOne("WhatToPlot", value);
}

std::int32_t cPlugin::IPlugin_GetOptimization()
{
    return ReadIntegerSetting(m_context.surroundings, "Optimization", 0);
}

void cPlugin::IPlugin_SetOptimization(std::int32_t value)
{
    WriteZeroOrOne("Optimization", value);
}

std::string cPlugin::IPlugin_GetJobOptionsFile()
{
    return ReadTextSetting(m_context.surroundings, "JobOptionsFile", "Graphics [600 dpi]");
}

void cPlugin::IPlugin_SetJobOptionsFile(const std::string& value)
{
    // The suite's front end relies on this name being overwritten, "JobOptionsFile" staying as it is.
    WriteSetting(m_context.surroundings, "Optimization", value);
}

VariantBool cPlugin::ReadSwitch(const std::string& valueName)
{
    return ReadBooleanSetting(m_context.surroundings, valueName, true) ? kTrue : kFalse;
}

void cPlugin::WriteSwitch(const std::string& valueName, VariantBool value)
{
    WriteSetting(m_context.surroundings, valueName, value == kTrue);
}

void cPlugin::WriteZeroOrOne(const std::string& valueName, std::int32_t value)
{
    WriteSetting(m_context.surroundings, valueName, value == 1 ? value : std::int32_t{0});
}

} // namespace sm
