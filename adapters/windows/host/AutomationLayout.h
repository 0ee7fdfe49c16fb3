// SPDX-License-Identifier: GPL-3.0-or-later
// A layout with its plot configuration, over the CAD host's automation object.
#pragma once

#include "windows/host/HostPorts.h"

namespace sm::windows {

class AutomationLayout final : public IAcadLayout, public HostObject {
public:
    using HostObject::HostObject;

    std::string Name() override { return Text("Name"); }
    std::int32_t TabOrder() override { return Integer("TabOrder"); }
    bool ModelType() override { return Boolean("ModelType"); }
    std::shared_ptr<IAcadBlock> Block() override { return Object<AutomationBlock>("Block"); }
    std::string GetLocaleMediaName(const std::string& canonicalName) override;

    std::string ConfigName() override { return Text("ConfigName"); }
    void SetConfigName(const std::string& name) override { m_object.Put("ConfigName", FromText(name)); }
    std::string CanonicalMediaName() override { return Text("CanonicalMediaName"); }
    void SetCanonicalMediaName(const std::string& name) override { m_object.Put("CanonicalMediaName", FromText(name)); }
    std::string StyleSheet() override { return Text("StyleSheet"); }
    void SetStyleSheet(const std::string& name) override { m_object.Put("StyleSheet", FromText(name)); }
    std::string ViewToPlot() override { return Text("ViewToPlot"); }
    void SetViewToPlot(const std::string& name) override { m_object.Put("ViewToPlot", FromText(name)); }

    std::int32_t PlotRotation() override { return Integer("PlotRotation"); }
    void SetPlotRotation(std::int32_t value) override { m_object.Put("PlotRotation", FromInteger(value)); }
    std::int32_t PlotType() override { return Integer("PlotType"); }
    void SetPlotType(std::int32_t value) override { m_object.Put("PlotType", FromInteger(value)); }
    std::int32_t PaperUnits() override { return Integer("PaperUnits"); }
    void SetPaperUnits(std::int32_t value) override { m_object.Put("PaperUnits", FromInteger(value)); }
    std::int32_t StandardScale() override { return Integer("StandardScale"); }
    void SetStandardScale(std::int32_t value) override { m_object.Put("StandardScale", FromInteger(value)); }

    bool CenterPlot() override { return Boolean("CenterPlot"); }
    void SetCenterPlot(bool value) override { m_object.Put("CenterPlot", FromBoolean(value)); }
    bool UseStandardScale() override { return Boolean("UseStandardScale"); }
    void SetUseStandardScale(bool value) override { m_object.Put("UseStandardScale", FromBoolean(value)); }
    bool PlotWithPlotStyles() override { return Boolean("PlotWithPlotStyles"); }
    void SetPlotWithPlotStyles(bool value) override { m_object.Put("PlotWithPlotStyles", FromBoolean(value)); }
    bool ShowPlotStyles() override { return Boolean("ShowPlotStyles"); }
    void SetShowPlotStyles(bool value) override { m_object.Put("ShowPlotStyles", FromBoolean(value)); }
    bool PlotHidden() override { return Boolean("PlotHidden"); }
    void SetPlotHidden(bool value) override { m_object.Put("PlotHidden", FromBoolean(value)); }
    bool PlotViewportBorders() override { return Boolean("PlotViewportBorders"); }
    void SetPlotViewportBorders(bool value) override { m_object.Put("PlotViewportBorders", FromBoolean(value)); }
    bool PlotWithLineweights() override { return Boolean("PlotWithLineweights"); }
    void SetPlotWithLineweights(bool value) override { m_object.Put("PlotWithLineweights", FromBoolean(value)); }
    bool ScaleLineweights() override { return Boolean("ScaleLineweights"); }
    void SetScaleLineweights(bool value) override { m_object.Put("ScaleLineweights", FromBoolean(value)); }
    bool PlotViewportsFirst() override { return Boolean("PlotViewportsFirst"); }
    void SetPlotViewportsFirst(bool value) override { m_object.Put("PlotViewportsFirst", FromBoolean(value)); }

    void GetWindowToPlot(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        GetCorners("GetWindowToPlot", lowerLeft, upperRight);
    }
    void SetWindowToPlot(const AcadPoint& lowerLeft, const AcadPoint& upperRight) override;
    AcadPoint PlotOrigin() override { return Point("PlotOrigin"); }
    void SetPlotOrigin(const AcadPoint& origin) override;
    void GetCustomScale(double& numerator, double& denominator) override
    {
        GetNumbers("GetCustomScale", numerator, denominator);
    }
    void SetCustomScale(double numerator, double denominator) override;

    void GetPaperSize(double& width, double& height) override { GetNumbers("GetPaperSize", width, height); }
    void GetPaperMargins(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        GetCorners("GetPaperMargins", lowerLeft, upperRight);
    }

    void RefreshPlotDeviceInfo() override { m_object.Call("RefreshPlotDeviceInfo"); }
    std::vector<std::string> GetPlotDeviceNames() override { return Texts("GetPlotDeviceNames"); }
    std::vector<std::string> GetCanonicalMediaNames() override { return Texts("GetCanonicalMediaNames"); }
    std::vector<std::string> GetPlotStyleTableNames() override { return Texts("GetPlotStyleTableNames"); }

private:
    /// Leave the arguments alone when the call fails or answers with anything else.
    void GetCorners(std::string_view member, AcadPoint& lowerLeft, AcadPoint& upperRight);
    void GetNumbers(std::string_view member, double& first, double& second);
    std::vector<std::string> Texts(std::string_view member) { return ToTexts(m_object.Call(member).Raw()); }
};

class AutomationLayouts final : public IAcadLayouts, public HostObject {
public:
    using HostObject::HostObject;
    std::int32_t Count() override { return Integer("Count"); }
    std::shared_ptr<IAcadLayout> Item(std::int32_t index) override
    {
        return Object<AutomationLayout>("Item", FromInteger(index));
    }
    std::shared_ptr<IAcadLayout> Item(const std::string& name) override
    {
        return Object<AutomationLayout>("Item", FromText(name));
    }
};

} // namespace sm::windows
