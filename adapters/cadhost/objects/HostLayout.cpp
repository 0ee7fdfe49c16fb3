// SPDX-License-Identifier: GPL-3.0-or-later
// The layout object and the collection of layouts.
#include "answers/HostErrors.h"
#include "answers/HostText.h"
#include "objects/HostObjects.h"

#include <algorithm>
#include <cmath>

namespace sm::cadhost {
namespace {

using drawing::PlotSettings;

class HostLayout final : public IAcadLayout {
public:
    HostLayout(SessionRef session, OpenDrawingRef open, std::size_t index)
        : m_session(std::move(session)), m_open(std::move(open)), m_index(index)
    {
    }
    [[nodiscard]] const OpenDrawingRef& Behind() const { return m_open; }
    [[nodiscard]] std::size_t Index() const { return m_index; }

    std::string Name() override { return Layout().name; }
    std::int32_t TabOrder() override { return m_open->TabOrder(m_index); }
    bool ModelType() override { return Layout().isModel; }
    std::shared_ptr<IAcadBlock> Block() override { return MakeBlock(m_open, Layout().block); }

    std::string ConfigName() override { return Configuration().Device(); }
    void SetConfigName(const std::string& name) override { Configuration().SetDevice(name, Folders()); }
    std::string CanonicalMediaName() override { return Configuration().Sheet().canonicalName; }
    void SetCanonicalMediaName(const std::string& name) override { Configuration().SetMedium(name, Folders()); }
    std::string GetLocaleMediaName(const std::string& canonicalName) override
    {
        return Configuration().LocaleName(canonicalName, Folders());
    }
    std::string StyleSheet() override { return Values().styleSheet; }
    void SetStyleSheet(const std::string& name) override { Configuration().SetStyle(name, Folders()); }

    std::int32_t PlotRotation() override { return Values().rotation; }
    void SetPlotRotation(std::int32_t rotation) override
    {
        ToWrite().rotation = InRange("PlotRotation", rotation, 0, 3);
    }
    std::int32_t PlotType() override { return Values().plotType; }
    void SetPlotType(std::int32_t type) override
    {
        ToWrite().plotType = InRange("PlotType", type, kPlotDisplay, kPlotLayout);
    }
    std::string ViewToPlot() override { return Values().viewName; }
    void SetViewToPlot(const std::string& name) override
    {
        for (const drawing::NamedView& view : m_open->File().Views()) {
            if (SameName(view.name, name) && view.paperSpace != Layout().isModel) {
                ToWrite().viewName = view.name;
                return;
            }
        }
        throw HostError("ViewToPlot: layout '" + Name() + "' has no view '" + name + "'");
    }
    void GetWindowToPlot(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        const Box2 window = Configuration().Window();
        lowerLeft = {window.min.x, window.min.y, 0};
        upperRight = {window.max.x, window.max.y, 0};
    }
    void SetWindowToPlot(const AcadPoint& lowerLeft, const AcadPoint& upperRight) override
    {
        for (const double value : {lowerLeft.x, lowerLeft.y, upperRight.x, upperRight.y})
            Finite("WindowToPlot", value);
        // A user may pick the corners in any order; marks are placed from the lower left one.
        const auto [left, right] = std::minmax(lowerLeft.x, upperRight.x);
        const auto [bottom, top] = std::minmax(lowerLeft.y, upperRight.y);
        Configuration().SetWindow({{left, bottom}, {right, top}});
    }

    bool CenterPlot() override { return Has(PlotSettings::kCentered); }
    void SetCenterPlot(bool value) override { Set(PlotSettings::kCentered, value); }
    AcadPoint PlotOrigin() override
    {
        const Vec2 origin = Configuration().Origin();
        return {origin.x, origin.y, 0};
    }
    void SetPlotOrigin(const AcadPoint& origin) override
    {
        Configuration().SetOrigin({Finite("PlotOrigin", origin.x), Finite("PlotOrigin", origin.y)});
    }

    std::int32_t PaperUnits() override { return Values().paperUnits; }
    void SetPaperUnits(std::int32_t units) override
    {
        ToWrite().paperUnits = InRange("PaperUnits", units, kPaperInches, kPaperPixels);
    }
    bool UseStandardScale() override { return Has(PlotSettings::kStandardScale); }
    void SetUseStandardScale(bool value) override { Set(PlotSettings::kStandardScale, value); }
    std::int32_t StandardScale() override { return Values().standardScale; }
    void SetStandardScale(std::int32_t code) override
    {
        if (code != 0 && plotter::FindStandardScale(code) == nullptr)
            throw HostError("StandardScale: " + std::to_string(code) + " is no scale code");
        ToWrite().standardScale = code;
    }
    void GetCustomScale(double& numerator, double& denominator) override
    {
        const PlotScale scale = Configuration().Scale(m_open->ExtentsOf(m_index));
        numerator = scale.numerator;
        denominator = scale.denominator;
    }
    void SetCustomScale(double numerator, double denominator) override
    {
        for (const double part : {numerator, denominator}) {
            if (!(Finite("CustomScale", part) > 0))
                throw HostError("CustomScale: both parts of a scale are above 0");
        }
        ToWrite().scaleNumerator = numerator;
        ToWrite().scaleDenominator = denominator;
    }

    bool PlotWithPlotStyles() override { return Has(PlotSettings::kPlotStyles); }
    void SetPlotWithPlotStyles(bool value) override { Set(PlotSettings::kPlotStyles, value); }
    bool ShowPlotStyles() override { return Has(PlotSettings::kShowStyles); }
    void SetShowPlotStyles(bool value) override { Set(PlotSettings::kShowStyles, value); }
    bool PlotHidden() override { return Has(PlotSettings::kHidden); }
    void SetPlotHidden(bool value) override { Set(PlotSettings::kHidden, value); }
    bool PlotViewportBorders() override { return Has(PlotSettings::kViewportBorders); }
    void SetPlotViewportBorders(bool value) override { Set(PlotSettings::kViewportBorders, value); }
    bool PlotWithLineweights() override { return Has(PlotSettings::kLineweights); }
    void SetPlotWithLineweights(bool value) override { Set(PlotSettings::kLineweights, value); }
    bool ScaleLineweights() override { return Has(PlotSettings::kScaleLineweights); }
    void SetScaleLineweights(bool value) override { Set(PlotSettings::kScaleLineweights, value); }
    bool PlotViewportsFirst() override { return Has(PlotSettings::kDrawViewportsFirst); }
    void SetPlotViewportsFirst(bool value) override { Set(PlotSettings::kDrawViewportsFirst, value); }

    void GetPaperSize(double& width, double& height) override
    {
        const Medium& sheet = Configuration().Sheet();
        width = sheet.width;
        height = sheet.height;
    }
    void GetPaperMargins(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        const Margins margins = Configuration().SheetMargins();
        lowerLeft = {margins.left, margins.bottom, 0};
        upperRight = {margins.right, margins.top, 0};
    }

    void RefreshPlotDeviceInfo() override { Configuration().Refresh(Folders()); }
    std::vector<std::string> GetPlotDeviceNames() override { return Configuration().Devices(Folders()); }
    std::vector<std::string> GetCanonicalMediaNames() override { return Configuration().MediaNames(Folders()); }
    std::vector<std::string> GetPlotStyleTableNames() override { return Configuration().Styles(Folders()); }

private:
    static std::int32_t InRange(const char* property, std::int32_t value, std::int32_t first, std::int32_t last)
    {
        if (value < first || value > last)
            throw HostError(std::string(property) + ": " + std::to_string(value) + " is not from " +
                            std::to_string(first) + " to " + std::to_string(last));
        return value;
    }
    static double Finite(const char* property, double value)
    {
        if (!std::isfinite(value))
            throw HostError(std::string(property) + ": not a number");
        return value;
    }
    [[nodiscard]] const drawing::Layout& Layout() const { return m_open->LayoutAt(m_index); }
    [[nodiscard]] PlotConfiguration& Configuration() const { return m_open->Configuration(m_index); }
    [[nodiscard]] const PlotSettings& Values() const { return Configuration().Values(); }
    [[nodiscard]] PlotSettings& ToWrite() const { return Configuration().ValuesToWrite(); }
    [[nodiscard]] PlotFolders Folders() const { return m_session->FoldersFor(*m_open); }
    [[nodiscard]] bool Has(std::int32_t bit) const { return Values().Has(bit); }
    void Set(std::int32_t bit, bool value) const
    {
        std::int32_t& flags = ToWrite().flags;
        flags = value ? flags | bit : flags & ~bit;
    }

    SessionRef m_session;
    OpenDrawingRef m_open;
    std::size_t m_index;
};

class HostLayouts final : public IAcadLayouts {
public:
    HostLayouts(SessionRef session, OpenDrawingRef open) : m_session(std::move(session)), m_open(std::move(open)) {}
    std::int32_t Count() override { return static_cast<std::int32_t>(Shown().size()); }
    std::shared_ptr<IAcadLayout> Item(std::int32_t index) override
    {
        if (index < 0 || static_cast<std::size_t>(index) >= Shown().size())
            throw HostError("Layouts: there is no item " + std::to_string(index));
        return MakeLayout(m_session, m_open, Shown()[static_cast<std::size_t>(index)]);
    }
    std::shared_ptr<IAcadLayout> Item(const std::string& name) override
    {
        for (const std::size_t index : Shown()) {
            if (SameName(m_open->LayoutAt(index).name, name))
                return MakeLayout(m_session, m_open, index);
        }
        throw HostError("Layouts: there is no layout '" + name + "'");
    }

private:
    [[nodiscard]] const std::vector<std::size_t>& Shown() const
    {
        static_cast<void>(m_open->File());
        return m_open->Shown();
    }
    SessionRef m_session;
    OpenDrawingRef m_open;
};

} // namespace

std::shared_ptr<IAcadLayout> MakeLayout(const SessionRef& session, const OpenDrawingRef& open, std::size_t index)
{
    return std::make_shared<HostLayout>(session, open, index);
}

std::shared_ptr<IAcadLayouts> MakeLayouts(const SessionRef& session, const OpenDrawingRef& open)
{
    return std::make_shared<HostLayouts>(session, open);
}

std::size_t IndexOf(const std::shared_ptr<IAcadLayout>& layout, const OpenDrawingRef& open)
{
    const auto host = std::dynamic_pointer_cast<HostLayout>(layout);
    if (host == nullptr || host->Behind() != open)
        throw HostError("ActiveLayout: this is no layout of '" + open->FileName() + "'");
    return host->Index();
}

} // namespace sm::cadhost
