// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/ScreenRun.h"

#include "commandline/Refusal.h"
#include "drawing/Drawing.h"
#include "drawing/DrawingError.h"
#include "plugin/mdlAcadHelper.h"
#include "report/RunOutcome.h"
#include "run/HostReport.h"

#include <new>
#include <ostream>
#include <stdexcept>

namespace sm::app {
namespace {

/// The user's locale but for its numbers.
Install WithPointInNumbers(const Install& install)
{
    Install changed = install;
    changed.environment = [environment = install.environment](const std::string& name) {
        const auto forAll = environment("LC_ALL");
        if (name == "LC_ALL")
            return std::optional<std::string>();
        if (name == "LC_NUMERIC")
            return std::optional<std::string>("C");
        return name.starts_with("LC_") && !forAll.value_or("").empty() ? forAll : environment(name);
    };
    return changed;
}

DrawingTask AsSet(const std::string& drawing)
{
    DrawingTask task;
    task.drawing = drawing;
    task.options.asSet = true;
    return task;
}

void NeedShareFolder(const Install& install)
{
    if (install.places.shareFolder.empty())
        throw Refusal{kExitToolMissing, "the install's share folder can't be found; \"sheetmaker doctor\" says more"};
}

} // namespace

ScreenRun::ScreenRun(const std::string& drawing, const Install& install, const ScreenParts& screen,
                     terminal::Console& console)
    : m_task(AsSet(drawing)), m_install((NeedShareFolder(install), WithPointInNumbers(install))),
      m_session(m_task, m_install, console, m_report, &screen)
{
    m_report.drawing = drawing;
    // The dialog may have chosen job options that ask for layers, or others.
    m_session.Watcher().WhenSettingsAreKept([this] {
        m_session.RenewLayers(m_task.options);
        if (m_onceKept)
            m_onceKept();
    });
    if (!drawing.empty())
        m_session.Open(drawing);
}

void ScreenRun::ConcludeConversion()
{
    const cadhost::DocumentReport host = m_session.HostReport();
    TakeHostReport(host, m_report);
    Conclude(Watcher(), host.plotFailure, m_report);
}

bool ScreenRun::Save()
{
    const bool changed = m_session.Drawing().Modified();
    SaveWhole(Watcher(), *m_session.Document(), m_task.drawing);
    return changed;
}

void SaveWhole(const SheetWatcher& watcher, IAcadDocument& document, const std::string& name)
{
    if (!watcher.LostRecord().empty())
        throw std::runtime_error(
            name + " was not changed, since it can't hold what was entered for it: " + watcher.LostRecord());
    document.Close(true);
}

void ShowUnlessRead(const ScreenParts& screen, const std::string& text)
{
    if (!screen.areErrorsRead)
        screen.desktop.ShowMessage({text, kProductTitle, MessageButtons::Ok, MessageIcon::Critical, {}, 0});
}

void TellOnScreen(const std::string& command, const ScreenParts& screen, std::ostream& err, const std::string& text)
{
    err << "sheetmaker " << command << ": " << text << std::endl;
    ShowUnlessRead(screen, text);
}

int RunOnScreen(const std::string& command, const ScreenParts& screen, std::ostream& err,
                const std::function<int()>& work)
{
    const auto tell = [&](const std::string& text, int exitCode) {
        TellOnScreen(command, screen, err, text);
        return exitCode;
    };
    try {
        return work();
    } catch (const Refusal& refusal) {
        return tell(refusal.text, refusal.exitCode);
    } catch (const std::bad_alloc&) {
        return tell("there is not enough memory", kExitFailed);
    } catch (const drawing::DwgConverterMissing& error) {
        return tell(error.what(), kExitToolMissing);
    } catch (const std::exception& error) {
        return tell(error.what(), kExitFailed);
    }
}

} // namespace sm::app
