// SPDX-License-Identifier: GPL-3.0-or-later
// One run of the command line: the plug-in's surroundings, the CAD host, and the drawing that is open in it.
//
// Every command that works on a drawing goes through here; nothing else composes a host.
#pragma once

#include "cadhost/CadHost.h"
#include "layouts/LayoutSelection.h"
#include "run/Surrounded.h"

#include <memory>
#include <string>
#include <vector>

namespace sm::app {

class RunSession {
public:
    /// References outlive this object, but for `task`. With a `screen`, windows and message boxes are shown there and
    /// points are picked in it.
    RunSession(const DrawingTask& task, const Install& install, terminal::Console& console, DrawingReport& report,
               const ScreenParts* screen = nullptr);
    RunSession(const RunSession&) = delete;
    RunSession& operator=(const RunSession&) = delete;

    [[nodiscard]] Surrounded& Around() { return m_surrounded; }
    [[nodiscard]] CallContext& Context() { return m_surrounded.Context(); }
    [[nodiscard]] SheetWatcher& Watcher() { return m_surrounded.Watcher(); }
    [[nodiscard]] const SheetWatcher& Watcher() const { return m_surrounded.Watcher(); }
    [[nodiscard]] std::shared_ptr<IAcadApplication> Application() { return m_host->Application(); }

    /// See CadHost.
    void Expect(std::vector<std::string> drawings, std::size_t ahead) { m_host->Expect(std::move(drawings), ahead); }
    /// Opens a drawing, once, and makes it the run's document; `read` is what the file holds, null: it is read. Throws
    /// std::exception for one that can't be read.
    void Open(const std::string& drawing, std::unique_ptr<drawing::Drawing> read);
    void Open(const std::string& drawing);
    /// Null before the first drawing.
    [[nodiscard]] const std::shared_ptr<IAcadDocument>& Document() const { return m_document; }
    [[nodiscard]] const drawing::Drawing& Drawing() { return m_host->DrawingOf(m_document); }

    /// Lays what the user wants of the open drawing's layouts over it and over the settings. The selection's error is
    /// the caller's to tell; nothing is laid then.
    LayoutSelection Select(const ConvertOptions& options);
    /// Makes a layout the active one for this run. Throws like `LayoutNamed`.
    void Activate(const std::string& layout);
    /// `wanted` as the drawing spells it. `alsoAllowed` are names that stand for no layout. Throws Refusal, with what
    /// there is, for a name that isn't there.
    std::string LayoutNamed(const std::string& wanted, const std::vector<std::string>& alsoAllowed = {});
    /// All layouts again with none, else these paper layouts alone, for this run; the active layout stays.
    void ShowOnly(const std::vector<std::string>& layouts);
    [[nodiscard]] std::vector<cadhost::LayoutOutline> Outlines() { return m_host->Outlines(m_document); }
    /// The layouts that become pages when nobody says which.
    std::vector<std::string> PagesByDefault();
    /// The layouts with everything that is in force.
    std::vector<cadhost::LayoutFacts> LayoutFacts() { return m_host->Layouts(m_document); }

    /// See CadHost.
    void PlotTo(cadhost::IPageSink* sink) { m_host->PlotTo(sink); }
    /// Plots tell of layers from now on as the options and the job options now in force ask for it.
    void RenewLayers(const ConvertOptions& options) { m_host->KeepLayers(m_surrounded.KeepsLayers(options)); }
    /// Throws Refusal when a PDF at `path` would replace a file that an open drawing is or names, shown or not, or one
    /// that plots are made with.
    void RefuseTarget(const std::string& path) const;
    /// Where the run asks for that: throws Refusal for a file from outside the open drawing's folder that is attached
    /// to a layout that `selection` may plot.
    void RefuseAttachments(const LayoutSelection& selection);
    /// What plotting the open drawing did so far.
    [[nodiscard]] cadhost::DocumentReport HostReport();

private:
    /// What the run needs the file for, in words; empty when for nothing.
    [[nodiscard]] std::string UseOf(const std::string& path) const;
    cadhost::PlotWishes Wishes(const PlotOptions& options);
    void LayWishes(const cadhost::PlotWishes& wishes, LayoutSelection& selection);

    const Install& m_install;
    Surrounded m_surrounded;
    std::unique_ptr<cadhost::CadHost> m_host;
    std::shared_ptr<IAcadDocument> m_document;
    std::string m_drawing;
    bool m_hasScreen;
};

} // namespace sm::app
