// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing that the host has open, with everything the run changes about it.
#pragma once

#include "cadhost/CadHost.h"
#include "cadhost/DocumentReport.h"
#include "cadhost/HostOptions.h"
#include "devices/PlotConfiguration.h"
#include "drawing/Drawing.h"
#include "render/PlotStyleTable.h"
#include "render/References.h"
#include "render/TextLayout.h"

namespace sm::cadhost {

/// What a plot is done with besides.
struct PlotWays {
    IPageSink* sink = nullptr;      ///< no file is written with one
    std::function<bool()> goesOn{}; ///< as in plotter::PlotJob, of a file
};

class OpenDrawing {
public:
    /// `file` is what `path` holds.
    OpenDrawing(const std::string& path, std::unique_ptr<drawing::Drawing> file, DocumentOverlay overlay,
                const HostOptions& options, render::ReferenceOptions references);

    /// Throws HostError once the drawing is closed; so does everything below that needs the file.
    [[nodiscard]] drawing::Drawing& File() const;
    [[nodiscard]] const std::string& FullName() const { return m_fullName; }
    /// Folder of the drawing, with the separator behind it.
    [[nodiscard]] std::string Folder() const;
    [[nodiscard]] std::string FileName() const;

    [[nodiscard]] const DocumentOverlay& Overlay() const { return m_overlay; }
    void SetOverlay(DocumentOverlay overlay);
    /// The drawing's own record counts again, since somebody wrote one.
    void DropPageSetupSource() { m_overlay.pageSetupSource.reset(); }

    /// Positions, in the drawing's list, of the layouts that the run shows: Model, then paper layouts in tab order.
    [[nodiscard]] const std::vector<std::size_t>& Shown() const { return m_shown; }
    [[nodiscard]] const drawing::Layout& LayoutAt(std::size_t index) const;
    /// Without gaps over what is shown.
    [[nodiscard]] std::int32_t TabOrder(std::size_t index) const;
    [[nodiscard]] std::size_t Active() const { return m_active; }
    void Activate(std::size_t index);
    /// The layout that was active last among the paper layouts.
    [[nodiscard]] std::size_t LastPaper() const { return m_lastPaper; }
    [[nodiscard]] PlotConfiguration& Configuration(std::size_t index);

    /// The box of what a space plots, computed once for each view.
    Box2 Extents(std::uint32_t block, const render::Matrix3& view);
    [[nodiscard]] ExtentsSource ExtentsOf(std::size_t index);
    render::TextEngine& Text();
    /// What the drawing brings along from other files.
    render::References& References();
    /// What the file at `path` is to the drawing, in words; empty when it is nothing, and once the drawing is closed.
    std::string UseOf(const std::string& path);

    /// Plots the active layout; false when that failed, and why is kept for the report. Plot style tables come from
    /// `folders`: the drawing's, the user's, then ours.
    bool Plot(const std::string& path, const PlotFolders& folders, bool keepLayers, const PlotWays& ways = {});
    [[nodiscard]] DocumentReport Report() const;

    /// Keeps what the reader found and mended for the report, until the drawing is saved.
    void Audit(bool fixErrors);

    /// Saves first when asked to and there is something to save; a failing save leaves the drawing open.
    void Close(bool saveChanges);

    std::int32_t windowState = 3;

private:
    void PlotActive(const std::string& path, const PlotFolders& folders, bool keepLayers, const PlotWays& ways);
    [[nodiscard]] const render::PlotStyleTable* StylesFor(const drawing::PlotSettings& settings,
                                                          const PlotFolders& folders);
    [[nodiscard]] bool IsLandscape(std::size_t index);

    struct KnownExtents {
        std::uint32_t block = 0;
        render::Matrix3 view;
        Box2 box;
    };
    std::string m_fullName;
    std::unique_ptr<drawing::Drawing> m_file;
    DocumentOverlay m_overlay;
    std::vector<std::size_t> m_shown;
    std::size_t m_active = 0, m_lastPaper = 0;
    std::vector<std::unique_ptr<PlotConfiguration>> m_configurations;
    std::vector<KnownExtents> m_extents;
    std::unique_ptr<render::TextEngine> m_text;
    render::ReferenceOptions m_referenceOptions;
    std::string m_shareFolder;
    std::unique_ptr<render::References> m_references;
    std::unique_ptr<render::RenderReport> m_report;
    std::map<std::string, render::PlotStyleTable> m_plotStyles; ///< by path, as far as they were asked for
    std::optional<DocumentAudit> m_audit;
    std::string m_plotFailure;
    bool m_notToScale = false;
};

} // namespace sm::cadhost
