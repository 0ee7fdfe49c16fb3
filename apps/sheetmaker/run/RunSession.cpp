// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/RunSession.h"

#include "base/files/Paths.h"
#include "cadhost/DocumentReport.h"
#include "cadhost/HostOptions.h"
#include "commandline/ExitCodes.h"
#include "commandline/Refusal.h"
#include "commandline/Suggest.h"
#include "drawing/Drawing.h"
#include "layouts/LargeSheets.h"
#include "layouts/PlotOptions.h"
#include "machine/DwgSetup.h"
#include "machine/SupportFiles.h"
#include "settings/mdlDataKegIO.h"

#include <algorithm>

namespace sm::app {
namespace {

cadhost::HostOptions OptionsFor(const DrawingTask& task, const Install& install, Surrounded& surrounded,
                                const ScreenParts* screen)
{
    cadhost::HostOptions options = HostOptionsOf(install, surrounded.Context().surroundings.registry, task.workFolder,
                                                 surrounded.KeepsLayers(task.options));
    options.picker = screen ? &screen->picker : nullptr;
    if (screen && screen->company)
        options.mayPlot = [company = screen->company, &surrounded] {
            const bool isCancelled = company->IsCancelled();
            if (isCancelled)
                surrounded.Watcher().Cancelled("the conversion");
            return !isCancelled;
        };
    return options;
}

/// False where nothing on that layout can come into the PDF.
bool MayPlot(const LayoutSelection& selection, const std::string& layout)
{
    const auto& only = selection.onlyLayouts;
    if (!only.empty())
        return std::find(only.begin(), only.end(), layout) != only.end();
    return !selection.activeLayout || selection.whatToPlot != kPlotCurrentTab || *selection.activeLayout == layout;
}

} // namespace

RunSession::RunSession(const DrawingTask& task, const Install& install, terminal::Console& console,
                       DrawingReport& report, const ScreenParts* screen)
    : m_install(install), m_surrounded(task, install, console, report, screen),
      m_host(cadhost::CadHost::Create(OptionsFor(task, install, m_surrounded, screen))), m_hasScreen(screen != nullptr)
{
    m_surrounded.AskForUses([this](const std::string& path) { return UseOf(path); });
}

std::string RunSession::UseOf(const std::string& path) const
{
    const std::string use = m_host->UseOf(path);
    const std::filesystem::path folder = base::ToPath(m_drawing).parent_path();
    return use.empty() ? SupportFileAt(path, m_install, base::ToText(folder)) : use;
}

void RunSession::RefuseTarget(const std::string& path) const
{
    const std::string use = UseOf(path);
    if (!use.empty())
        throw Refusal{kExitUsage, "the PDF would replace " + use + "; choose another name with -o"};
}

void RunSession::RefuseAttachments(const LayoutSelection& selection)
{
    if (!m_surrounded.Attachments().RefusesOutside())
        return;
    std::vector<AttachmentEntry> entries;
    ReadAttachments(Context(), *m_document, entries);
    for (const AttachmentEntry& entry : entries)
        if (MayPlot(selection, entry.LayoutName) && m_surrounded.Attachments().LiesOutside(entry.FilePath))
            throw Refusal{kExitFailed, "the attached file " + entry.FilePath +
                                           " lies outside the drawing's folder, which --attachments refuses"};
}

void RunSession::Open(const std::string& drawing)
{
    Open(drawing, nullptr);
}

void RunSession::Open(const std::string& drawing, std::unique_ptr<drawing::Drawing> read)
{
    m_document = read != nullptr ? m_host->Take(drawing, std::move(read)) : m_host->Open(drawing);
    m_drawing = drawing;
    m_surrounded.Attachments().DrawingIs(drawing);
}

LayoutSelection RunSession::Select(const ConvertOptions& options)
{
    LayoutSelection selection = SelectLayouts(options, m_host->Outlines(m_document));
    if (!selection.error.empty())
        return selection;
    const cadhost::PlotWishes wishes = Wishes(options.plot);
    if (!(wishes == cadhost::PlotWishes()))
        LayWishes(wishes, selection);
    m_host->Overlay(m_document, {selection.pageSetupSource, selection.activeLayout, selection.onlyLayouts,
                                 m_hasScreen || options.plot.paper ? std::map<std::string, cadhost::FittedPaper>()
                                                                   : SheetsToFit(Drawing(), selection),
                                 wishes});
    return selection;
}

cadhost::PlotWishes RunSession::Wishes(const PlotOptions& options)
{
    const bool asksForStyle = options.style || options.tone != Tone::AsDrawn;
    return WishesOf(options, Drawing(),
                    asksForStyle ? m_document->ActiveLayout()->GetPlotStyleTableNames() : std::vector<std::string>());
}

/// Layouts take wishes into their own settings; where another page setup is in force, it is the run's own global one
/// that has them.
cadhost::DocumentReport RunSession::HostReport()
{
    return m_host->Report(m_document);
}

void RunSession::LayWishes(const cadhost::PlotWishes& wishes, LayoutSelection& selection)
{
    const std::int32_t source = selection.pageSetupSource.value_or(ReadPlotSelection(Context(), *m_document));
    if (source == kPageSetupNative)
        return;
    PageSetupRecord record = ReadGlobalPageSetup(Context().surroundings);
    if (source == kPageSetupCustom && ReadCustomPageSetup(Context(), *m_document, record) == CustomPageSetup::HostError)
        throw Refusal{kExitFailed, "the drawing's own page setup can't be read; --page-setup takes another one"};
    ApplyWishes(wishes, record);
    m_surrounded.LayGlobalPageSetup(record);
    selection.pageSetupSource = kPageSetupGlobal;
}

void RunSession::Activate(const std::string& layout)
{
    m_host->Overlay(m_document, {{}, LayoutNamed(layout), {}});
}

void RunSession::ShowOnly(const std::vector<std::string>& layouts)
{
    m_host->Overlay(m_document, {{}, m_document->ActiveLayout()->Name(), layouts});
}

std::vector<std::string> RunSession::PagesByDefault()
{
    const std::vector<cadhost::LayoutOutline> layouts = m_host->Outlines(m_document);
    const LayoutSelection selection = SelectLayouts({}, layouts);
    std::vector<std::string> pages;
    for (const cadhost::LayoutOutline& layout : layouts) {
        const bool chosen = std::find(selection.onlyLayouts.begin(), selection.onlyLayouts.end(), layout.name) !=
                            selection.onlyLayouts.end();
        const bool every = selection.whatToPlot == kPlotAllTabs && selection.onlyLayouts.empty() && !layout.isModel;
        if (chosen || every || selection.activeLayout == layout.name)
            pages.push_back(layout.name);
    }
    return pages;
}

std::string RunSession::LayoutNamed(const std::string& wanted, const std::vector<std::string>& alsoAllowed)
{
    std::vector<std::string> names;
    for (const cadhost::LayoutOutline& layout : m_host->Outlines(m_document))
        names.push_back(layout.name);
    names.insert(names.end(), alsoAllowed.begin(), alsoAllowed.end());
    std::string found = FindName(wanted, names);
    if (!found.empty())
        return found;
    const std::string suggestion = Suggestion(wanted, names);
    throw Refusal{kExitUsage, m_drawing + " has no layout \"" + wanted + "\"" +
                                  (suggestion.empty() ? "; it has " + QuotedList(names) : suggestion)};
}

} // namespace sm::app
