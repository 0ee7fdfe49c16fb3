// SPDX-License-Identifier: GPL-3.0-or-later
// The interface by which the suite's front end drives the plug-in. No operation throws.
#pragma once

#include "ports/IAcadApplication.h"

namespace sm {

class IPlugin {
public:
    virtual ~IPlugin() = default;
    VariantBool Initialize(const std::shared_ptr<IAcadApplication>& app) { return IPlugin_Initialize(app); }
    void ConvertToPDF(std::int32_t hostValue) { IPlugin_ConvertToPDF(hostValue); }
    /// The second and third argument are ignored; the result is always False.
    VariantBool ShowSettings(std::int32_t hostValue, std::int32_t second, std::int32_t third)
    {
        return IPlugin_ShowSettings(hostValue, second, third);
    }
    void ShowLog() { IPlugin_ShowLog(); }
    std::string Version() { return IPlugin_Version(); }

    VariantBool PromptForFileName() { return IPlugin_GetPromptForFileName(); }
    void SetPromptForFileName(VariantBool value) { IPlugin_SetPromptForFileName(value); }
    VariantBool DeletePs() { return IPlugin_GetDeletePs(); }
    void SetDeletePs(VariantBool value) { IPlugin_SetDeletePs(value); }
    VariantBool OpenInViewer() { return IPlugin_GetOpenInViewer(); }
    void SetOpenInViewer(VariantBool value) { IPlugin_SetOpenInViewer(value); }
    /// 0 the active layout, 1 all paper layouts; any other value written is stored as 0.
    std::int32_t WhatToPlot() { return IPlugin_GetWhatToPlot(); }
    void SetWhatToPlot(std::int32_t value) { IPlugin_SetWhatToPlot(value); }
    /// 0 gives 1200 dpi, 1 gives 600; any other value written is stored as 0.
    std::int32_t Optimization() { return IPlugin_GetOptimization(); }
    void SetOptimization(std::int32_t value) { IPlugin_SetOptimization(value); }
    /// Reads "JobOptionsFile"; a write goes to "Optimization", which the suite's front end has come to rely on.
    std::string JobOptionsFile() { return IPlugin_GetJobOptionsFile(); }
    void SetJobOptionsFile(const std::string& value) { IPlugin_SetJobOptionsFile(value); }

private:
    virtual VariantBool IPlugin_Initialize(const std::shared_ptr<IAcadApplication>& app) = 0;
    virtual void IPlugin_ConvertToPDF(std::int32_t hostValue) = 0;
    virtual VariantBool IPlugin_ShowSettings(std::int32_t hostValue, std::int32_t second, std::int32_t third) = 0;
    virtual void IPlugin_ShowLog() = 0;
    virtual std::string IPlugin_Version() = 0;
    virtual VariantBool IPlugin_GetPromptForFileName() = 0;
    virtual void IPlugin_SetPromptForFileName(VariantBool value) = 0;
    virtual VariantBool IPlugin_GetDeletePs() = 0;
    virtual void IPlugin_SetDeletePs(VariantBool value) = 0;
    virtual VariantBool IPlugin_GetOpenInViewer() = 0;
    virtual void IPlugin_SetOpenInViewer(VariantBool value) = 0;
    virtual std::int32_t IPlugin_GetWhatToPlot() = 0;
    virtual void IPlugin_SetWhatToPlot(std::int32_t value) = 0;
    virtual std::int32_t IPlugin_GetOptimization() = 0;
    virtual void IPlugin_SetOptimization(std::int32_t value) = 0;
    virtual std::string IPlugin_GetJobOptionsFile() = 0;
    virtual void IPlugin_SetJobOptionsFile(const std::string& value) = 0;
};

} // namespace sm
