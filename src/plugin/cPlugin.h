// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-in object: what the suite's front end creates and drives.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IPlugin.h"
#include "settings/SettingTable.h"

namespace sm {

/// Holds the host application and nothing else; settings are read and written through on every call. A conversion or a
/// settings dialog that is asked for within another one on the same thread is turned away: nothing happens.
class cPlugin final : public IPlugin {
public:
    /// `context` is the program's one call context; it outlives the object.
    explicit cPlugin(CallContext& context) : m_context(context) {}

private:
    VariantBool IPlugin_Initialize(const std::shared_ptr<IAcadApplication>& app) override;
    void IPlugin_ConvertToPDF(std::int32_t hostValue) override;
    VariantBool IPlugin_ShowSettings(std::int32_t hostValue, std::int32_t second, std::int32_t third) override;
    void IPlugin_ShowLog() override;
    std::string IPlugin_Version() override;
    VariantBool IPlugin_GetPromptForFileName() override;
    void IPlugin_SetPromptForFileName(VariantBool value) override;
    VariantBool IPlugin_GetDeletePs() override;
    void IPlugin_SetDeletePs(VariantBool value) override;
    VariantBool IPlugin_GetOpenInViewer() override;
    void IPlugin_SetOpenInViewer(VariantBool value) override;
    std::int32_t IPlugin_GetWhatToPlot() override;
    void IPlugin_SetWhatToPlot(std::int32_t value) override;
    std::int32_t IPlugin_GetOptimization() override;
    void IPlugin_SetOptimization(std::int32_t value) override;
    std::string IPlugin_GetJobOptionsFile() override;
    void IPlugin_SetJobOptionsFile(const std::string& value) override;

    void ConvertActiveDrawing(std::int32_t hostValue);
    VariantBool ReadSwitch(const Setting& setting);
    void WriteSwitch(const Setting& setting, VariantBool value);
    void WriteZeroOrOne(const Setting& setting, std::int32_t value);

    CallContext& m_context;
    std::shared_ptr<IAcadApplication> m_AcadApp; ///< null until `Initialize` succeeds
};

} // namespace sm
