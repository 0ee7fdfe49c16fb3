// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/OpenDrawing.h"

#include "answers/HostErrors.h"
#include "answers/HostText.h"
#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "cadhost/PageSink.h"
#include "cadhost/Remarks.h"
#include "plotter/Plotter.h"
#include "render/FrontEnd.h"
#include "session/BlankPage.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace sm::cadhost {
namespace {

namespace fs = std::filesystem;

std::string AbsolutePath(const std::string& path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(base::ToPath(path), error);
    return error ? path : base::ToText(absolute.lexically_normal());
}

std::optional<std::size_t> FindLayout(const drawing::Drawing& drawing, const std::string& name)
{
    const auto& layouts = drawing.Layouts();
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        if (SameName(layouts[i].name, name))
            return i;
    }
    return std::nullopt;
}

} // namespace

OpenDrawing::OpenDrawing(const std::string& path, std::unique_ptr<drawing::Drawing> file, DocumentOverlay overlay,
                         const HostOptions& options, render::ReferenceOptions references)
    : m_fullName(AbsolutePath(path)), m_file(std::move(file)), m_active(m_file->ActiveLayout()),
      m_referenceOptions(std::move(references)), m_shareFolder(options.shareFolder)
{
    m_configurations.resize(m_file->Layouts().size());
    SetOverlay(std::move(overlay));
}

drawing::Drawing& OpenDrawing::File() const
{
    if (m_file == nullptr)
        throw HostError("the drawing '" + FileName() + "' is closed");
    return *m_file;
}

std::string OpenDrawing::Folder() const
{
    return base::ToText(base::ToPath(m_fullName).parent_path() / "");
}

std::string OpenDrawing::FileName() const
{
    return base::ToText(base::ToPath(m_fullName).filename());
}

void OpenDrawing::SetOverlay(DocumentOverlay overlay)
{
    m_overlay = std::move(overlay);
    m_shown.clear();
    const auto& layouts = File().Layouts();
    const auto isNamed = [&](const drawing::Layout& layout) {
        return std::any_of(m_overlay.layouts.begin(), m_overlay.layouts.end(),
                           [&](const std::string& name) { return SameName(name, layout.name); });
    };
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        if (layouts[i].isModel || m_overlay.layouts.empty() || isNamed(layouts[i]))
            m_shown.push_back(i);
    }
    const auto paper = std::find_if(m_shown.begin(), m_shown.end(), [&](std::size_t i) { return !layouts[i].isModel; });
    m_lastPaper = paper == m_shown.end() ? m_active : *paper;
    const auto wanted = m_overlay.activeLayout ? FindLayout(File(), *m_overlay.activeLayout) : std::nullopt;
    Activate(wanted.value_or(m_active));
}

const drawing::Layout& OpenDrawing::LayoutAt(std::size_t index) const
{
    const auto& layouts = File().Layouts();
    if (index >= layouts.size())
        throw HostError("the drawing '" + FileName() + "' has no such layout");
    return layouts[index];
}

std::int32_t OpenDrawing::TabOrder(std::size_t index) const
{
    const auto place = std::find(m_shown.begin(), m_shown.end(), index);
    return place == m_shown.end() ? LayoutAt(index).tabOrder : static_cast<std::int32_t>(place - m_shown.begin());
}

void OpenDrawing::Activate(std::size_t index)
{
    const bool paper = !LayoutAt(index).isModel;
    m_active = index;
    if (paper)
        m_lastPaper = index;
}

bool OpenDrawing::IsLandscape(std::size_t index)
{
    const drawing::Layout& layout = LayoutAt(index);
    const Box2 box = layout.extents.Empty() ? Extents(layout.block, {}) : layout.extents;
    const bool hasSize = !box.Empty() && (box.Width() > 0 || box.Height() > 0);
    return !hasSize || box.Width() > box.Height();
}

PlotConfiguration& OpenDrawing::Configuration(std::size_t index)
{
    const drawing::Layout& layout = LayoutAt(index);
    auto& configuration = m_configurations[index];
    if (configuration == nullptr) {
        configuration = std::make_unique<PlotConfiguration>(
            File(), layout, [&] { return IsLandscape(index); }, ExtentsOf(index));
        configuration->Wish(m_overlay.wishes);
        if (const auto fitted = m_overlay.fitted.find(layout.name); fitted != m_overlay.fitted.end())
            configuration->FitOn(fitted->second);
    }
    return *configuration;
}

Box2 OpenDrawing::Extents(std::uint32_t block, const render::Matrix3& view)
{
    for (const KnownExtents& known : m_extents) {
        if (known.block == block && known.view == view)
            return known.box;
    }
    const Box2 box = AsHost([&] { return render::ExtentsOf(File(), block, view, Text(), &References()); });
    m_extents.push_back({block, view, box});
    return box;
}

ExtentsSource OpenDrawing::ExtentsOf(std::size_t index)
{
    return [this, block = LayoutAt(index).block](const render::Matrix3& view) { return Extents(block, view); };
}

render::TextEngine& OpenDrawing::Text()
{
    if (m_text == nullptr)
        m_text = AsHost([this] { return render::TextEngine::Create(render::TextFoldersOf(m_shareFolder)); });
    return *m_text;
}

std::string OpenDrawing::UseOf(const std::string& path)
{
    if (m_file == nullptr)
        return {};
    return base::IsSameFile(m_fullName, path) ? "the drawing" : References().UseOf(path);
}

render::References& OpenDrawing::References()
{
    if (m_references == nullptr)
        m_references = AsHost([this] { return std::make_unique<render::References>(File(), m_referenceOptions); });
    return *m_references;
}

bool OpenDrawing::Plot(const std::string& path, const PlotFolders& folders, bool keepLayers, const PlotWays& ways)
{
    static_cast<void>(File());
    try {
        PlotActive(path, folders, keepLayers, ways);
        m_plotFailure.clear();
        return true;
    } catch (const std::exception& error) {
        m_plotFailure = error.what();
        return false;
    }
}

// A table that is missing or broken is no reason not to plot: the report names it.
const render::PlotStyleTable* OpenDrawing::StylesFor(const drawing::PlotSettings& settings, const PlotFolders& folders)
{
    if (settings.styleSheet.empty() || !settings.Has(drawing::PlotSettings::kPlotStyles))
        return nullptr;
    const std::string path = FindPlotStyle(folders, settings.styleSheet);
    if (path.empty()) {
        m_report->Remark(kNoStyleTable + settings.styleSheet + "\" not found, plotted without it");
        return nullptr;
    }
    try {
        auto known = m_plotStyles.find(path);
        if (known == m_plotStyles.end())
            known = m_plotStyles.emplace(path, render::ReadPlotStyleTable(path)).first;
        return &known->second;
    } catch (const render::PlotStyleError& error) {
        m_report->Remark(kWithoutStyles + std::string(error.what()));
        return nullptr;
    }
}

void OpenDrawing::PlotActive(const std::string& path, const PlotFolders& folders, bool keepLayers, const PlotWays& ways)
{
    const drawing::Layout& layout = LayoutAt(m_active);
    PlotConfiguration& configuration = Configuration(m_active);
    if (configuration.Resolution() == 0)
        throw HostError("layout '" + layout.name + "': the device '" + configuration.Device() +
                        "' can't plot to a file; choose one of the plotter configurations (.pc3) of the host");
    if (m_report == nullptr)
        m_report = std::make_unique<render::RenderReport>(File());
    const drawing::PlotSettings settings = configuration.Settings();
    for (const std::string& remark : configuration.Remarks())
        m_report->Remark(remark);
    const plotter::PlotJob job{File(),
                               layout,
                               settings,
                               static_cast<double>(configuration.Resolution()),
                               layout.name,
                               "Sheetmaker PDF",
                               ExtentsOf(m_active),
                               StylesFor(settings, folders),
                               keepLayers,
                               &References(),
                               m_overlay.wishes.penScale,
                               0,
                               ways.goesOn};
    if (ways.sink != nullptr) {
        const auto page = plotter::PlotOnCanvas(job, ways.sink->Canvas(), Text(), *m_report, ways.sink->Stop());
        configuration.KeepPlottedOrigin(page.placement.origin);
        return ways.sink->PageIs(page.width, page.height, page.fromSheet);
    }
    const plotter::PlottedPage page = plotter::PlotToPostScript(job, path, Text(), *m_report);
    m_notToScale = m_notToScale || configuration.IsFitted();
    configuration.KeepPlottedOrigin(page.placement.origin);
    const PlotWishes& wishes = m_overlay.wishes;
    const bool isChosen =
        settings.plotType != kPlotLayout && settings.plotType != kPlotLimits && !wishes.paper && !wishes.landscape;
    const std::string off =
        isChosen ? "" : OffPageRemark(File(), layout, m_report->CountIn(layout.block, render::Outcome::OffPage));
    if (!page.hasInk)
        m_report->Remark(BlankPageRemark(File(), layout, page.placement, ExtentsOf(m_active)));
    else if (!off.empty())
        m_report->Remark(off);
    if (const std::string cut = CutSheetRemark(layout, settings, wishes); !cut.empty())
        m_report->Remark(cut);
}

namespace {

void AddCounts(const render::RenderReport& from, DocumentReport& report)
{
    report.drawn += from.Count(render::Outcome::Drawn);
    report.hidden += from.Count(render::Outcome::Hidden);
    report.offPage += from.Count(render::Outcome::OffPage);
    report.notReached += from.Count(render::Outcome::NotReached);
    report.notDrawn += from.Count(render::Outcome::NotDrawn);
}

/// Drawings that are shown in place of blocks count with theirs, under the names that their layers have in the host.
void AddReferences(const render::References& references, DocumentReport& report)
{
    for (const drawing::Finding& finding : references.Findings())
        report.findings.push_back(finding);
    for (const render::References::XrefReport& xref : references.Xrefs()) {
        report.read += xref.file->EntityCount();
        AddCounts(*xref.report, report);
        for (render::NotDrawnKind kind : xref.report->NotDrawn()) {
            kind.layer = xref.prefix + "|" + kind.layer;
            report.notDrawnKinds.push_back(std::move(kind));
        }
    }
}

} // namespace

DocumentReport OpenDrawing::Report() const
{
    DocumentReport report;
    report.read = File().EntityCount();
    report.findings = File().Findings();
    report.audited = m_audit;
    report.plotFailure = m_plotFailure;
    report.notToScale = m_notToScale;
    if (m_text != nullptr)
        report.substitutions = m_text->Substitutions();
    if (m_report == nullptr)
        report.notReached = report.read;
    else
        AddCounts(*m_report, report);
    if (m_report != nullptr)
        report.notDrawnKinds = m_report->NotDrawn();
    if (m_report != nullptr)
        report.remarks = m_report->Remarks();
    if (m_references != nullptr)
        AddReferences(*m_references, report);
    return report;
}

void OpenDrawing::Audit(bool fixErrors)
{
    m_audit = DocumentAudit{fixErrors, File().Findings()};
}

void OpenDrawing::Close(bool saveChanges)
{
    drawing::Drawing& file = File();
    if (saveChanges && file.Modified())
        AsHost([&] { file.Save(true); });
    m_audit.reset();
    m_report.reset();
    m_references.reset();
    m_configurations.clear();
    m_file.reset();
}

} // namespace sm::cadhost
