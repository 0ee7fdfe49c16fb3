// SPDX-License-Identifier: GPL-3.0-or-later
// The embedded CAD host: the automation objects over drawing files, plotting through our own plotter.
#pragma once

#include "cadhost/LayoutFacts.h"
#include "cadhost/PlotWishes.h"
#include "ports/IAcadApplication.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::drawing {
class Drawing;
}

namespace sm::cadhost {

class IPageSink;
struct DocumentReport;
struct HostOptions;

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
