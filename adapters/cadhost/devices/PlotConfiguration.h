// SPDX-License-Identifier: GPL-3.0-or-later
// The plot configuration of one layout, as the run changes it.
#pragma once

#include "cadhost/CadHost.h"
#include "devices/OwnPlotArea.h"
#include "devices/PlotDevices.h"

#include <optional>

namespace sm::cadhost {

struct PlotScale {
    double numerator = 1, denominator = 1; ///< paper units for drawing units
};

/// Seeded from the drawing, changed in memory only. Setters throw HostError for what the layout can't have and then
/// change nothing. The lists are as of the last refresh; the first question refreshes them.
class PlotConfiguration {
public:
    /// `landscape` is asked only for a layout without paper: whether its contents are wider than high; `extents` as in
    /// MendWindow.
    PlotConfiguration(const drawing::Drawing& drawing, const drawing::Layout& layout,
                      const std::function<bool()>& landscape, const ExtentsSource& extents);

    /// What the layout's own settings ask for and can't have: what is plotted in its place.
    [[nodiscard]] std::vector<std::string> Remarks() const;

    /// Answers the layout's own settings as this paper and scale to fit: its sheet is larger than every other one.
    void FitOn(const FittedPaper& paper);
    /// Answers the layout's own settings as the run wants them.
    void Wish(const PlotWishes& wishes);
    /// Whether the settings in force are those.
    [[nodiscard]] bool IsFitted() const { return m_fitted && m_values.plotType == m_mendedType; }

    /// The values without a rule of their own; sizes, margins and origin in here don't count.
    [[nodiscard]] const drawing::PlotSettings& Values() const { return m_values; }
    drawing::PlotSettings& ValuesToWrite()
    {
        m_plottedOrigin.reset();
        return m_values;
    }
    /// The plot window in world coordinates where the layout is seen in plan, in its display plane else.
    [[nodiscard]] const Box2& Window() const { return m_values.window; }
    void SetWindow(const Box2& window) { ValuesToWrite().window = window; }
    /// Of the plot, along the drawing's axes, millimetres. The file has it along the axes of the unturned sheet. After
    /// a plot the one that the plotter used, which a centred plot has of its own, until something is written: marks are
    /// placed by it. At all other times the one that was stored.
    [[nodiscard]] Vec2 Origin() const { return m_plottedOrigin.value_or(m_origin); }
    void SetOrigin(Vec2 origin)
    {
        m_plottedOrigin.reset();
        m_origin = origin;
    }
    void KeepPlottedOrigin(Vec2 origin) { m_plottedOrigin = origin; }

    void Refresh(const PlotFolders& folders);
    const std::vector<std::string>& Devices(const PlotFolders& folders);
    std::vector<std::string> MediaNames(const PlotFolders& folders);
    const std::vector<std::string>& Styles(const PlotFolders& folders);

    [[nodiscard]] const std::string& Device() const { return m_device; }
    void SetDevice(const std::string& name, const PlotFolders& folders);
    void SetStyle(const std::string& name, const PlotFolders& folders);
    void SetMedium(const std::string& canonicalName, const PlotFolders& folders);
    std::string LocaleName(const std::string& canonicalName, const PlotFolders& folders);

    /// The present sheet and, unturned, the margins in force.
    [[nodiscard]] const Medium& Sheet() const { return m_sheet; }
    [[nodiscard]] Margins SheetMargins() const;
    /// Dots per inch of the present device; 0 when it writes no PostScript.
    [[nodiscard]] std::int32_t Resolution() const { return m_pc3 == nullptr ? 0 : m_pc3->resolution; }

    /// Everything that is in force, for the plotter.
    [[nodiscard]] drawing::PlotSettings Settings() const;
    /// The scale in force; `extents` is asked under scale to fit only.
    [[nodiscard]] PlotScale Scale(const ExtentsSource& extents) const;

private:
    /// What a layout shows as a whole becomes a window, which can be plotted at any scale.
    void PlotSheetAsWindow();
    void TakePaper(const FittedPaper& paper);
    void ScaleToFit();
    void Turn(bool landscape);
    void RefreshOnce(const PlotFolders& folders);
    [[nodiscard]] std::vector<Medium> Media() const;

    const drawing::Drawing& m_drawing;
    const drawing::Layout& m_layout;
    drawing::PlotSettings m_own;    ///< as drawn; its paper is the one that keeps its margins
    drawing::PlotSettings m_values; ///< as configured
    std::string m_device;
    Medium m_ownSheet, m_sheet;
    std::shared_ptr<const Pc3File> m_pc3;
    Vec2 m_origin;
    std::optional<Vec2> m_plottedOrigin;
    std::int32_t m_mendedType = 0;
    bool m_fitted = false;
    std::vector<std::string> m_remarks;
    bool m_listed = false;
    std::vector<std::string> m_devices, m_styles;
    std::vector<Medium> m_media;
};

} // namespace sm::cadhost
