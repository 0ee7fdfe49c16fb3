// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the steps, plot options and style sheet.
#include "plotting/PlotConfig.h"

#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IRunObserver.h"
#include "ports/IWindows.h"

#include <algorithm>
#include <array>

namespace sm {
namespace {

struct PlotOption {
    const char* label;
    std::int32_t PageSetupRecord::*field;
    void (IAcadLayout::*write)(bool);
};

constexpr std::array<PlotOption, 7> kPlotOptions{{
    {"  PlotWithPlotStyles: ", &PageSetupRecord::PlotWithPlotStyles, &IAcadLayout::SetPlotWithPlotStyles},
    {"  ShowPlotStyles: ", &PageSetupRecord::ShowPlotStyles, &IAcadLayout::SetShowPlotStyles},
    {"  PlotHidden: ", &PageSetupRecord::PlotHidden, &IAcadLayout::SetPlotHidden},
    {"  PlotViewportBorders: ", &PageSetupRecord::PlotViewportBorders, &IAcadLayout::SetPlotViewportBorders},
    {"  PlotWithLineWeights: ", &PageSetupRecord::PlotWithLineweights, &IAcadLayout::SetPlotWithLineweights},
    {"  ScaleLineWeights: ", &PageSetupRecord::ScaleLineWeights, &IAcadLayout::SetScaleLineweights},
    {"  PlotViewportsFirst: ", &PageSetupRecord::PlotViewportsFirst, &IAcadLayout::SetPlotViewportsFirst},
}};

} // namespace

std::int32_t SetAcadPlotConfig(CallContext& context, IAcadLayout& layout, PageSetupRecord& record, VariantBool silent,
                               bool restore)
{
    PlotConfig config(context, layout, record, silent != kFalse, restore);
    return GiveUp([&] { return config.Run(); },
                  [&](const std::string& description) {
                      context.surroundings.observer.CarriedPast("SetAcadPlotConfig", description);
                      if (!restore)
                          TryLogLine(context, "RUNTIME ERROR: SetAcadPlotConfig -" + description);
                      return kConfigFailed;
                  });
}

std::int32_t PlotConfig::Run()
{
    using Step = StepResult (PlotConfig::*)();
    static constexpr std::array<Step, 10> kSteps{
        &PlotConfig::SetOptions,  &PlotConfig::SetStyleSheet, &PlotConfig::ChoosePlotter, &PlotConfig::SetPlotter,
        &PlotConfig::SetMedia,    &PlotConfig::SetRotation,   &PlotConfig::SetWindow,     &PlotConfig::SetView,
        &PlotConfig::SetPlotArea, &PlotConfig::SetScale};
    for (const Step step : kSteps) {
        if (const StepResult status = (this->*step)())
            return *status;
    }
    return m_status;
}

void PlotConfig::Trace(const std::string& text) noexcept
{
    if (!m_restore)
        TryLogLine(m_context, text);
}

PlotConfig::StepResult PlotConfig::HostFailed(std::int32_t status, const std::string& description)
{
    m_context.surroundings.observer.CarriedPast("SetAcadPlotConfig", description);
    Trace("RUNTIME ERROR: " + description);
    return status;
}

PlotConfig::StepResult PlotConfig::SetOptions()
{
    if (!m_restore)
        Trace("  Layout Tab: " + m_layout.Name());
    for (const PlotOption& option : kPlotOptions) {
        const bool value = m_record.*option.field != 0;
        Trace(std::string(option.label) + (value ? "1" : "0"));
        (m_layout.*option.write)(value);
    }
    return {};
}

PlotConfig::StepResult PlotConfig::SetStyleSheet()
{
    Trace("  StyleSheet Requested: " + m_record.StyleSheet);
    std::string style;
    if (!m_record.StyleSheet.empty()) {
        if (const StepResult status = ChooseStyle(style))
            return status;
    }
    Trace("  StyleSheet Used: " + style);
    m_layout.SetStyleSheet(style);
    return {};
}

PlotConfig::StepResult PlotConfig::ChooseStyle(std::string& style)
{
    std::vector<std::string> names{"None"};
    const std::vector<std::string> tables = m_layout.GetPlotStyleTableNames();
    names.insert(names.end(), tables.begin(), tables.end());
    if (std::find(names.begin(), names.end(), m_record.StyleSheet) != names.end()) {
        style = m_record.StyleSheet;
        return {};
    }
    if (m_silent) {
        m_status = kConfigNoStyle;
        return {};
    }
    const std::optional<std::int32_t> choice = m_context.surroundings.windows.PickPlotStyle(names);
    if (!choice)
        return kConfigStyleCancelled;
    if (*choice < 0 || static_cast<std::size_t>(*choice) >= names.size())
        return kConfigFailed;
    style = names[static_cast<std::size_t>(*choice)];
    return {};
}

} // namespace sm
