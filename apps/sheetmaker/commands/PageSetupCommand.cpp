// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/PageSetupCommand.h"

#include "commandline/ExitCodes.h"
#include "hostobjects/cAcadPageSetup.h"
#include "plugin/CallScope.h"
#include "screen/KeptBeside.h"
#include "screen/RecentDrawings.h"
#include "screen/ScreenRun.h"
#include "settings/mdlDataKegIO.h"

#include <ostream>
#include <stdexcept>

namespace sm::app {
namespace {

/// True when the user confirmed the dialog and what it held was kept.
bool EditPageSetup(ScreenRun& run)
{
    // The dialog lists the views and style tables of the drawing that the call works on.
    const CallScope call(run.Context(), run.Application(), run.Document());
    std::shared_ptr<IAcadDocument> document = run.Document();
    cAcadPageSetup setup(run.Context());
    IAcadPageSetup& dialog = setup;
    if (dialog.Initialize(document ? kPageSetupCustom : kPageSetupGlobal, document) == kFalse)
        throw std::runtime_error(run.Report().drawing + ": its page setup can't be read");
    dialog.ShowPageSetup();
    const bool changed = setup.IsChanged();
    dialog.Update();
    return changed;
}

int ShowPageSetup(ScreenRun& run, std::ostream& out)
{
    if (!EditPageSetup(run))
        return kExitDone;
    if (!run.Document()) {
        if (!run.Watcher().LostSetting().empty())
            throw std::runtime_error("the global page setup was not kept: " + run.Watcher().LostSetting());
        out << "The global page setup was kept; \"sheetmaker convert DRAWING --page-setup global\" plots with it\n";
        return kExitDone;
    }
    const std::string& drawing = run.Report().drawing;
    const bool inUse = ReadPlotSelection(run.Context(), *run.Document()) == kPageSetupCustom;
    if (run.Save())
        out << drawing << ": the page setup was kept"
            << (inUse ? "" : "; \"sheetmaker convert DRAWING --page-setup custom\" plots with it") << "\n";
    return kExitDone;
}

} // namespace

int RunPageSetup(const PageSetupJob& job, const Install& install, const ScreenParts& screen, std::ostream& out,
                 std::ostream& err)
{
    return RunOnScreen("page-setup", screen, err, [&] {
        terminal::Console console(err, screen.hasTerminal);
        ScreenRun run(job.drawing.value_or(""), install, screen, console);
        if (job.drawing) {
            RememberDrawing(screen.memory, *job.drawing);
            TellWhereEntriesGo(run.Session().Drawing(), *job.drawing, screen.desktop);
        }
        return ShowPageSetup(run, out);
    });
}

} // namespace sm::app
