// SPDX-License-Identifier: GPL-3.0-or-later
// A layout with its plot configuration.
#include "doubles/ScriptedHost.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace sm {
namespace {

bool Holds(const std::vector<std::string>& list, const std::string& text)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

std::string PairText(const AcadPoint& point)
{
    return TapeText(point.x) + "," + TapeText(point.y);
}

class ScriptedLayout final : public IAcadLayout {
public:
    ScriptedLayout(ScriptedHost& host, std::shared_ptr<LayoutFacts> facts) : m_host(host), m_facts(std::move(facts)) {}
    [[nodiscard]] std::shared_ptr<LayoutFacts> Facts() const { return m_facts; }

    std::string Name() override { return Get("Name", m_facts->Name); }
    std::int32_t TabOrder() override { return Get("TabOrder", m_facts->TabOrder); }
    bool ModelType() override { return Get("ModelType", m_facts->ModelType); }
    std::shared_ptr<IAcadBlock> Block() override
    {
        Call("Block");
        return m_host.tape.Answer(m_host.OwnBlock(std::shared_ptr<BlockFacts>(m_facts, &m_facts->Block)));
    }

    std::string ConfigName() override { return Get("ConfigName", m_facts->ConfigName); }
    void SetConfigName(const std::string& name) override
    {
        Call("SetConfigName", name);
        if (!Holds(Devices(), name))
            throw HostError("Invalid input");
        m_facts->ConfigName = name;
    }
    std::string CanonicalMediaName() override { return Get("CanonicalMediaName", m_facts->CanonicalMediaName); }
    void SetCanonicalMediaName(const std::string& name) override
    {
        Call("SetCanonicalMediaName", name);
        if (!Holds(Media(), name))
            throw HostError("Invalid input");
        m_facts->CanonicalMediaName = name;
        if (const auto sheet = m_host.facts.Sheets.find(name); sheet != m_host.facts.Sheets.end()) {
            m_facts->PaperWidth = sheet->second.Width;
            m_facts->PaperHeight = sheet->second.Height;
        }
    }
    std::string GetLocaleMediaName(const std::string& canonicalName) override
    {
        Call("GetLocaleMediaName", canonicalName);
        std::string text = canonicalName;
        std::replace(text.begin(), text.end(), '_', ' ');
        return m_host.tape.Answer(text);
    }
    std::string StyleSheet() override { return Get("StyleSheet", m_facts->StyleSheet); }
    void SetStyleSheet(const std::string& name) override { Set("SetStyleSheet", m_facts->StyleSheet, name); }

    std::int32_t PlotRotation() override { return Get("PlotRotation", m_facts->PlotRotation); }
    void SetPlotRotation(std::int32_t rotation) override { Set("SetPlotRotation", m_facts->PlotRotation, rotation); }
    std::int32_t PlotType() override { return Get("PlotType", m_facts->PlotType); }
    void SetPlotType(std::int32_t type) override { Set("SetPlotType", m_facts->PlotType, type); }
    std::string ViewToPlot() override { return Get("ViewToPlot", m_facts->ViewToPlot); }
    void SetViewToPlot(const std::string& name) override { Set("SetViewToPlot", m_facts->ViewToPlot, name); }
    void GetWindowToPlot(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        Call("GetWindowToPlot");
        lowerLeft = m_facts->WindowLowerLeft;
        upperRight = m_facts->WindowUpperRight;
    }
    void SetWindowToPlot(const AcadPoint& lowerLeft, const AcadPoint& upperRight) override
    {
        Call("SetWindowToPlot", PairText(lowerLeft) + " " + PairText(upperRight));
        m_facts->WindowLowerLeft = lowerLeft;
        m_facts->WindowUpperRight = upperRight;
    }

    bool CenterPlot() override { return Get("CenterPlot", m_facts->CenterPlot); }
    void SetCenterPlot(bool value) override { Set("SetCenterPlot", m_facts->CenterPlot, value); }
    AcadPoint PlotOrigin() override { return Get("PlotOrigin", m_facts->PlotOrigin); }
    void SetPlotOrigin(const AcadPoint& origin) override
    {
        Call("SetPlotOrigin", PairText(origin));
        m_facts->PlotOrigin = origin;
    }

    std::int32_t PaperUnits() override { return Get("PaperUnits", m_facts->PaperUnits); }
    void SetPaperUnits(std::int32_t units) override { Set("SetPaperUnits", m_facts->PaperUnits, units); }
    bool UseStandardScale() override { return Get("UseStandardScale", m_facts->UseStandardScale); }
    void SetUseStandardScale(bool value) override { Set("SetUseStandardScale", m_facts->UseStandardScale, value); }
    std::int32_t StandardScale() override { return Get("StandardScale", m_facts->StandardScale); }
    void SetStandardScale(std::int32_t code) override { Set("SetStandardScale", m_facts->StandardScale, code); }
    void GetCustomScale(double& numerator, double& denominator) override
    {
        Call("GetCustomScale");
        numerator = m_facts->ScaleNumerator;
        denominator = m_facts->ScaleDenominator;
    }
    void SetCustomScale(double numerator, double denominator) override
    {
        Call("SetCustomScale", TapeText(numerator) + " " + TapeText(denominator));
        m_facts->ScaleNumerator = numerator;
        m_facts->ScaleDenominator = denominator;
    }

    bool PlotWithPlotStyles() override { return Get("PlotWithPlotStyles", m_facts->PlotWithPlotStyles); }
    void SetPlotWithPlotStyles(bool value) override
    {
        Set("SetPlotWithPlotStyles", m_facts->PlotWithPlotStyles, value);
    }
    bool ShowPlotStyles() override { return Get("ShowPlotStyles", m_facts->ShowPlotStyles); }
    void SetShowPlotStyles(bool value) override { Set("SetShowPlotStyles", m_facts->ShowPlotStyles, value); }
    bool PlotHidden() override { return Get("PlotHidden", m_facts->PlotHidden); }
    void SetPlotHidden(bool value) override { Set("SetPlotHidden", m_facts->PlotHidden, value); }
    bool PlotViewportBorders() override { return Get("PlotViewportBorders", m_facts->PlotViewportBorders); }
    void SetPlotViewportBorders(bool value) override
    {
        Set("SetPlotViewportBorders", m_facts->PlotViewportBorders, value);
    }
    bool PlotWithLineweights() override { return Get("PlotWithLineweights", m_facts->PlotWithLineweights); }
    void SetPlotWithLineweights(bool value) override
    {
        Set("SetPlotWithLineweights", m_facts->PlotWithLineweights, value);
    }
    bool ScaleLineweights() override { return Get("ScaleLineweights", m_facts->ScaleLineweights); }
    void SetScaleLineweights(bool value) override { Set("SetScaleLineweights", m_facts->ScaleLineweights, value); }
    bool PlotViewportsFirst() override { return Get("PlotViewportsFirst", m_facts->PlotViewportsFirst); }
    void SetPlotViewportsFirst(bool value) override
    {
        Set("SetPlotViewportsFirst", m_facts->PlotViewportsFirst, value);
    }

    void GetPaperSize(double& width, double& height) override
    {
        Call("GetPaperSize");
        width = m_facts->PaperWidth;
        height = m_facts->PaperHeight;
    }
    void GetPaperMargins(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        Call("GetPaperMargins");
        lowerLeft = m_facts->MarginLowerLeft;
        upperRight = m_facts->MarginUpperRight;
    }

    void RefreshPlotDeviceInfo() override
    {
        Call("RefreshPlotDeviceInfo");
        m_facts->ListedDevices = Devices();
        m_facts->ListedMedia = Media();
    }
    std::vector<std::string> GetPlotDeviceNames() override { return Get("GetPlotDeviceNames", m_facts->ListedDevices); }
    std::vector<std::string> GetCanonicalMediaNames() override
    {
        return Get("GetCanonicalMediaNames", m_facts->ListedMedia);
    }
    std::vector<std::string> GetPlotStyleTableNames() override
    {
        return Get("GetPlotStyleTableNames", m_host.facts.Styles);
    }

private:
    void Call(const std::string& operation, const std::string& arguments = {})
    {
        m_host.tape.Call("Layout", m_facts->Name, operation, arguments);
    }
    template <class Value> Value Get(const std::string& operation, const Value& value)
    {
        Call(operation);
        if constexpr (std::is_arithmetic_v<Value> || std::is_same_v<Value, AcadPoint>)
            return value;
        else
            return m_host.tape.Answer(value);
    }
    void Set(const std::string& operation, std::string& field, const std::string& value)
    {
        Call(operation, value);
        field = value;
    }
    void Set(const std::string& operation, std::int32_t& field, std::int32_t value)
    {
        Call(operation, std::to_string(value));
        field = value;
    }
    void Set(const std::string& operation, bool& field, bool value)
    {
        Call(operation, TapeText(value));
        field = value;
    }
    [[nodiscard]] std::vector<std::string> Devices() const
    {
        std::vector<std::string> devices = m_host.facts.Devices;
        const auto more = m_host.facts.DevicesIn.find(m_host.facts.PrinterConfigPath);
        if (more != m_host.facts.DevicesIn.end())
            devices.insert(devices.end(), more->second.begin(), more->second.end());
        return devices;
    }
    [[nodiscard]] std::vector<std::string> Media() const
    {
        const auto media = m_host.facts.MediaOf.find(m_facts->ConfigName);
        return media == m_host.facts.MediaOf.end() ? std::vector<std::string>{} : media->second;
    }

    ScriptedHost& m_host;
    std::shared_ptr<LayoutFacts> m_facts;
};

} // namespace

std::shared_ptr<IAcadLayout> ScriptedHost::OwnLayout(const std::shared_ptr<LayoutFacts>& layout)
{
    return layout == nullptr ? nullptr : std::make_shared<ScriptedLayout>(*this, layout);
}

std::shared_ptr<LayoutFacts> ScriptedHost::FactsOf(const std::shared_ptr<IAcadLayout>& layout)
{
    const auto scripted = std::dynamic_pointer_cast<ScriptedLayout>(layout);
    return scripted == nullptr ? nullptr : scripted->Facts();
}

} // namespace sm
