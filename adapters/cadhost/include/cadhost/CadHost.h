// SPDX-License-Identifier: GPL-3.0-or-later
// The embedded CAD host: the automation objects over drawing files, plotting through our own plotter.
#pragma once

#include "cadhost/LayoutFacts.h"
#include "cadhost/PlotWishes.h"
#include "drawing/DwgConverter.h"
#include "drawing/Finding.h"
#include "ports/IAcadApplication.h"
#include "render/ReferenceOptions.h"
#include "render/RenderReport.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::cadhost {

class IPageSink;
class IPointPicker;

struct HostOptions {
    std::string shareFolder; ///< holds Drivers, PC3, Plotters, PlotStyles, fonts.map
    std::string loginName;   ///< what "LOGINNAME" gives
    drawing::DwgOptions dwg{};
    std::string userStyleFolder = {}; ///< the user's own plot style tables; may be missing
    bool keepLayers = false;          ///< plots tell which layer shows what, hidden ones included
    /// Where pictures, underlays and drawings are looked for that a drawing refers to, and what shows pages of PDF
    /// files.
    render::ReferenceOptions references = {};
    /// Asked before each plot into a file, and often while it goes on; false: somebody cancelled, and the plot fails.
    /// Empty: none is refused.
    std::function<bool()> mayPlot = {};
    /// Asked when the user is to pick a point; outlives the host. Null: there is no window, and picking fails.
    IPointPicker* picker = nullptr;
};

/// The run's layer over a document: seen through the automation model, never saved.
struct DocumentOverlay {
    std::optional<std::int32_t> pageSetupSource; ///< a PageSetupSource; stands for the "PltSel" record
    std::optional<std::string> activeLayout;
    std::vector<std::string> layouts; ///< when not empty, the paper layouts that "Layouts" shows, in tab order
    /// By name, the layouts whose own settings are answered as this paper and scale to fit.
    std::map<std::string, FittedPaper> fitted = {};
    /// Of every layout: its own settings are answered so, and all pens are plotted so.
    PlotWishes wishes = {};
};

/// What an audit of a document found. What was mended is so in memory only: saving writes the records that were
/// changed and nothing else.
struct DocumentAudit {
    bool fixErrors = false; ///< as asked for; the reader mends in either case
    std::vector<drawing::Finding> findings;
};

/// What plotting a document did so far.
struct DocumentReport {
    std::uint64_t read = 0, drawn = 0, hidden = 0, offPage = 0, notReached = 0, notDrawn = 0; ///< entities; they sum up
    std::vector<render::RenderReport::NotDrawnKind> notDrawnKinds;
    std::vector<drawing::Finding> findings;
    std::vector<std::string> substitutions;                    ///< fonts
    std::map<std::string, std::uint64_t, std::less<>> remarks; ///< what was drawn otherwise, and how often
    std::optional<DocumentAudit> audited;                      ///< the last audit; none before the first
    bool notToScale = false;                                   ///< a layout was plotted to fit on another paper
    std::string plotFailure;                                   ///< why the last plot failed; empty when it didn't
};

class CadHost {
public:
    static std::unique_ptr<CadHost> Create(const HostOptions& options);
    virtual ~CadHost() = default;
    virtual std::shared_ptr<IAcadApplication> Application() = 0;
    /// Opens a drawing and makes it the active one. Throws drawing::DrawingError.
    virtual std::shared_ptr<IAcadDocument> Open(const std::string& path, const DocumentOverlay& overlay = {}) = 0;
    /// The same with a drawing that has been read from `path` already.
    virtual std::shared_ptr<IAcadDocument> Take(const std::string& path, std::unique_ptr<drawing::Drawing> read) = 0;
    /// Which drawings will be opened, and in which order: that many are read beforehand, beside what is plotted.
    virtual void Expect(std::vector<std::string> paths, std::size_t ahead) = 0;
    /// Lays another overlay over an open document, in place of the one that it has.
    virtual void Overlay(const std::shared_ptr<IAcadDocument>& document, const DocumentOverlay& overlay) = 0;
    /// Whether plots tell of layers from now on, whatever the options said.
    virtual void KeepLayers(bool keep) = 0;
    /// Plots draw on `sink` from now on and write no file; null: they write files again. It outlives its use.
    virtual void PlotTo(IPageSink* sink) = 0;
    /// These take a document of this host.
    virtual DocumentReport Report(const std::shared_ptr<IAcadDocument>& document) = 0;
    /// The layouts that the run shows, in tab order: as the drawing has them, whatever the run configured.
    virtual std::vector<LayoutOutline> Outlines(const std::shared_ptr<IAcadDocument>& document) = 0;
    /// The same with everything that is in force; those that are scaled to fit are measured for it.
    virtual std::vector<LayoutFacts> Layouts(const std::shared_ptr<IAcadDocument>& document) = 0;
    /// What the file at `path` is to a drawing that is open, as References::UseOf says it; empty when it is nothing.
    virtual std::string UseOf(const std::string& path) = 0;
    virtual const drawing::Drawing& DrawingOf(const std::shared_ptr<IAcadDocument>& document) = 0;
};

} // namespace sm::cadhost
