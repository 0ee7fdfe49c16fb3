// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/PageSetupCommand.h"

#include "commandline/ExitCodes.h"
#include "drawing/Drawing.h"
#include "hostobjects/cAcadPageSetup.h"
#include "plugin/CallScope.h"
#include "screen/KeptBeside.h"
#include "screen/PagePreview.h"
#include "screen/RecentDrawings.h"
#include "screen/ScreenRun.h"
#include "screen/SheetChoice.h"
#include "settings/mdlDataKegIO.h"

#include <optional>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace sm::app {
namespace {

/// The page that would come out, beside the dialog of a drawing, while the dialog may be shown.
class PageBeside {
public:
    PageBeside(ScreenRun& run, const Install& install, beside::ICompany* company)
        : m_run(run), m_company(run.Document() != nullptr ? company : nullptr),
          m_sheets({[this] { return m_run.Session().Outlines(); },
                    [this] { return m_run.Document()->ActiveLayout()->Name(); },
                    [this](const std::string& name) { m_run.Activate(name); },
                    {},
                    "frmPageSetup"}),
          m_page(
              run.Report().drawing, install, [this] { return Wish(); },
              [this] { return m_run.Session().Drawing().Twin(); })
    {
        m_sheets.SetPage(&m_page);
        if (m_company != nullptr)
            m_company->StandBeside(&m_sheets);
    }
    ~PageBeside()
    {
        if (m_company != nullptr)
            m_company->StandBeside(nullptr);
    }
    PageBeside(const PageBeside&) = delete;
    PageBeside& operator=(const PageBeside&) = delete;

private:
    /// What the drawing has, with the page setup that the dialog holds.
    std::optional<PreviewWish> Wish()
    {
        const SettingsReader& read = m_run.Session().Around().Reader();
        if (!read || !Stored())
            return std::nullopt;
        PreviewWish wish{m_run.Document()->ActiveLayout()->Name(), *m_stored};
        return read(wish.keg) ? std::optional(std::move(wish)) : std::nullopt;
    }
    /// Read once: what can't be read is logged.
    bool Stored()
    {
        if (m_isRead)
            return m_stored.has_value();
        m_isRead = true;
        DataKeg keg;
        IAcadDocument& document = *m_run.Document();
        if (LoadForDialog(m_run.Context(), document, keg) != 0 || keg.Layouts.empty())
            return false;
        ReadSignatureFields(m_run.Context(), document, keg.Layouts.front().SignatureFields);
        m_stored = std::move(keg);
        return true;
    }

    ScreenRun& m_run;
    beside::ICompany* m_company;
    SheetChoice m_sheets;
    PagePreview m_page;
    std::optional<DataKeg> m_stored;
    bool m_isRead = false;
};

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
        const PageBeside page(run, install, screen.company);
        return ShowPageSetup(run, out);
    });
}

} // namespace sm::app
