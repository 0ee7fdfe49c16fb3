// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the steps, and what stands before the plot.
#include "plotting/PlotLoop.h"

#include "plotting/PaperTable.h"
#include "plotting/PlotConfig.h"
#include "plotting/PostScriptDriver.h"
#include "plugin/Present.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadDocument.h"
#include "ports/IPubDoc.h"
#include "ports/IRunObserver.h"
#include "ports/ISystem.h"
#include "settings/mdlDataKegIO.h"
#include "settings/mdlUtilities.h"

#include <algorithm>
#include <array>
#include <utility>

namespace sm {
namespace {

/// In capitals; of the numbers without a name, nothing.
std::string SourceText(std::int32_t source)
{
    std::string text = NameOf(kPageSetupSources, source);
    std::transform(text.begin(), text.end(), text.begin(), UpperAsciiLetter);
    return text;
}

} // namespace

std::int32_t PlotLayoutToPubDoc(CallContext& context, IPubDoc& pubDoc, const std::string& layoutName,
                                VariantBool silent, std::int32_t pageSetupSource, std::int32_t resolution,
                                const std::string& jobOptionsFile)
{
    return PlotLoop(context, pubDoc, layoutName, silent != kFalse, pageSetupSource, resolution, jobOptionsFile).Run();
}

PlotLoop::PlotLoop(CallContext& context, IPubDoc& pubDoc, std::string layoutName, bool silent,
                   std::int32_t pageSetupSource, std::int32_t resolution, std::string jobOptionsFile)
    : m_context(context), m_pubDoc(pubDoc), m_layoutName(std::move(layoutName)), m_silent(silent),
      m_source(pageSetupSource), m_resolution(resolution), m_jobOptionsFile(std::move(jobOptionsFile))
{
}

std::int32_t PlotLoop::Run()
{
    using Step = Next (PlotLoop::*)();
    static constexpr std::array<Step, 12> kSteps{
        &PlotLoop::CheckDriver,     &PlotLoop::SelectLayout,      &PlotLoop::ReadUserSetup,
        &PlotLoop::ChoosePlotSetup, &PlotLoop::AnnouncePageSetup, &PlotLoop::SwitchPlotterFolder,
        &PlotLoop::MatchPaper,      &PlotLoop::ConfigureLayout,   &PlotLoop::PlotToPostScript,
        &PlotLoop::AddToPubDoc,     &PlotLoop::AddAnnotations,    &PlotLoop::CheckDisplayMarks};
    Next next = Next::Step;
    for (std::size_t i = 0; i < kSteps.size() && next == Next::Step; ++i)
        next = (this->*kSteps[i])();
    if (next == Next::ShortExit)
        ShortExit();
    else
        NormalExit();
    m_context.surroundings.observer.SheetEnds(m_layoutName, m_status, m_markCount);
    return m_status;
}

PlotLoop::Next PlotLoop::Leave(std::int32_t status, Next exit)
{
    m_status = status;
    return exit;
}

void PlotLoop::Tell(PlotMessage message)
{
    if (!m_silent)
        ShowPlotMessage(m_context, message);
}

PlotLoop::Next PlotLoop::CheckDriver()
{
    m_context.surroundings.observer.Stage("plot");
    if (DriverPresent(m_context))
        return Next::Step;
    Tell(PlotMessage::DriverMissing);
    return Leave(kPlotNoDriver, Next::ShortExit);
}

PlotLoop::Next PlotLoop::SelectLayout()
{
    m_layout = FindLayout();
    return m_layout == nullptr ? Leave(kPlotNoLayout, Next::ShortExit) : Next::Step;
}

/// The layout of the call, made the active one; null when there is none, or when it can't be made active: another
/// layout would be plotted in its place.
std::shared_ptr<IAcadLayout> PlotLoop::FindLayout()
{
    const bool lastActive = SameAsciiText(m_layoutName, kLastActiveLayoutTab);
    if (lastActive)
        CarryPast([&] { ActiveDrawing(m_context).SetActiveSpace(0); });
    if (lastActive || SameAsciiText(m_layoutName, kCurrentTab))
        return CarryPast([&] { return ActiveDrawing(m_context).ActiveLayout(); }).value_or(nullptr);
    const auto layout =
        CarryPast([&] { return Present(ActiveDrawing(m_context).Layouts(), "Layouts")->Item(m_layoutName); });
    if (!layout || *layout == nullptr)
        return nullptr;
    const bool active = CarryPast([&] { ActiveDrawing(m_context).SetActiveLayout(*layout); });
    return active ? *layout : nullptr;
}

PlotLoop::Next PlotLoop::ReadUserSetup()
{
    PageSetupRecord record;
    if (ReadLayoutPageSetup(m_context, *m_layout, record)) {
        m_userSetup = record;
        return Next::Step;
    }
    Tell(PlotMessage::PageSetupNotInitialized);
    return m_source == kPageSetupNative ? Leave(kPlotNoPageSetup, Next::ShortExit) : Next::Step;
}

PlotLoop::Next PlotLoop::ChoosePlotSetup()
{
    std::optional<PageSetupRecord> chosen;
    if (m_source == kPageSetupCustom) {
        PageSetupRecord record;
        if (m_context.g_AcadDoc != nullptr &&
            ReadCustomPageSetup(m_context, *m_context.g_AcadDoc, record) == CustomPageSetup::Read)
            chosen = record;
    } else if (m_source == kPageSetupGlobal) {
        chosen = ReadGlobalPageSetup(m_context.surroundings);
    }
    if (!chosen)
        chosen = m_userSetup;
    if (!chosen)
        return Leave(kPlotNoPageSetup, Next::ShortExit);
    m_plotSetup = *chosen;
    if (!m_userSetup)
        m_userSetup = m_plotSetup;
    return Next::Step;
}

PlotLoop::Next PlotLoop::AnnouncePageSetup()
{
    const std::string name = CarryPast([&] { return m_layout->Name(); }).value_or(m_layoutName);
    TryLogLine(m_context,
               "USE " + SourceText(m_source) + " PAGE SETUP FOR " + m_context.surroundings.locale.UpperCase(name));
    return Next::Step;
}

PlotLoop::Next PlotLoop::SwitchPlotterFolder()
{
    if (SetPlotterPath(m_context) == 0)
        return Next::Step;
    Tell(PlotMessage::PlotterFolderNotSet);
    return Leave(kPlotNoPlotterFolder, Next::ShortExit);
}

PlotLoop::Next PlotLoop::MatchPaper()
{
    m_plotSetup.ConfigName = Pc3Name(DriverVersion(m_context), m_resolution);
    std::vector<PaperSize> table;
    LoadPaperTable(table);
    if (MatchMedia(m_plotSetup, table) || PickPageSize(m_context, m_plotSetup, table))
        return Next::Step;
    return Leave(kPlotCancelled, Next::NormalExit);
}

PlotLoop::Next PlotLoop::ConfigureLayout()
{
    switch (SetAcadPlotConfig(m_context, *m_layout, m_plotSetup, m_silent ? kTrue : kFalse, false)) {
    case kConfigViewMissing:
        ShowPlotMessage(m_context, PlotMessage::ViewNotFound);
        return Leave(kPlotNoView, Next::NormalExit);
    case kConfigViewRefused:
        ShowPlotMessage(m_context, PlotMessage::ViewNotOnLayout);
        return Leave(kPlotNoView, Next::NormalExit);
    case kConfigNoMedia:
        ShowPlotMessage(m_context, PlotMessage::MediaNotFound);
        return Leave(kPlotNoMedia, Next::NormalExit);
    case kConfigNoPlotter:
        Tell(PlotMessage::Pc3NotFound);
        return Leave(kPlotNoPc3, Next::NormalExit);
    case kConfigStyleCancelled:
        return Leave(kPlotCancelled, Next::NormalExit);
    case kConfigFailed:
        return Leave(kPlotNotConfigured, Next::NormalExit);
    default:
        return Next::Step;
    }
}

} // namespace sm
