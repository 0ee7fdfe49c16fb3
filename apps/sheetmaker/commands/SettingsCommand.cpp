// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/SettingsCommand.h"

#include "commandline/ExitCodes.h"
#include "commands/SettingsRun.h"
#include "records/MarkBoard.h"
#include "screen/RecentDrawings.h"

#include "drawing/Drawing.h"
#include "plugin/mdlAcadHelper.h"

#include <algorithm>
#include <ostream>

namespace sm::app {
namespace {

/// The dialog with one drawing after the other, as the user goes on.
class SettingsShowings {
public:
    SettingsShowings(const Install& install, const ScreenParts& screen, std::ostream& out, std::ostream& err)
        : m_install(install), m_screen(screen), m_out(out), m_err(err)
    {
    }

    int Run(const std::string& drawing, const std::string& layout)
    {
        std::string former;
        Handover handover;
        handover.drawing = drawing;
        handover.layout = layout;
        while (handover.step != beside::NextStep::Close) {
            std::string at = handover.drawing;
            handover = ShowOrGoBack(handover, former);
            former = at;
        }
        return m_exitCode;
    }

private:
    /// What was changed is saved when the user says so, as the commands for single marks save it.
    void EditMarks(const Handover& handover)
    {
        terminal::Console console(m_err, m_screen.hasTerminal);
        MarkBoard board(handover.drawing, m_install, console);
        const auto& layouts = board.Drawing().Layouts();
        const auto layout = std::find_if(layouts.begin(), layouts.end(),
                                         [&](const drawing::Layout& one) { return one.name == handover.layout; });
        m_screen.marks->EditMarks(
            board.Drawing(), layout != layouts.end() ? static_cast<std::size_t>(layout - layouts.begin()) : 0, board);
        const std::string question = "Marks were changed. Keep the changes in\r\n" + handover.drawing + "?";
        const bool isKept =
            board.IsChanged() &&
            m_screen.desktop.ShowMessage(
                {question, kProductTitle, MessageButtons::YesNo, MessageIcon::Question, {}, 0}) == MessageAnswer::Yes;
        m_screen.picker.Forget(board.Drawing());
        if (!isKept)
            return;
        board.Save();
        m_out << handover.drawing << ": the marks were kept\n";
    }

    Handover Show(const Handover& handover)
    {
        if (handover.editsMarks)
            RunOnScreen("settings", m_screen, m_err, [&] { return EditMarks(handover), kExitDone; });
        SettingsRun run(handover, m_install, m_screen, m_out, m_err);
        m_exitCode = run.Run().value_or(m_exitCode);
        return run.Next();
    }

    /// A drawing that the user went on to and that can't be opened leaves the one before.
    Handover ShowOrGoBack(const Handover& handover, const std::string& former)
    {
        if (former.empty() || former == handover.drawing)
            return Show(handover);
        Handover next;
        const int code = RunOnScreen("settings", m_screen, m_err, [&] {
            next = Show(handover);
            return kExitDone;
        });
        if (code != kExitDone) {
            next = {};
            next.drawing = former;
            next.isFirst = false;
        }
        return next;
    }

    const Install& m_install;
    const ScreenParts& m_screen;
    std::ostream& m_out;
    std::ostream& m_err;
    int m_exitCode = kExitDone;
};

std::optional<std::string> Chosen(const ScreenParts& screen)
{
    if (screen.company != nullptr)
        return screen.company->ChooseDrawing(RecentDrawings(screen.memory));
    return screen.desktop.AskOpenFile({"Open Drawing", {}, "Drawings", "dxf;dwg", true, 0});
}

} // namespace

int RunSettings(const SettingsJob& job, const Install& install, const ScreenParts& screen, std::ostream& out,
                std::ostream& err)
{
    return RunOnScreen("settings", screen, err, [&] {
        const auto drawing = job.drawing ? job.drawing : Chosen(screen);
        return drawing ? SettingsShowings(install, screen, out, err).Run(*drawing, job.layout.value_or("")) : kExitDone;
    });
}

} // namespace sm::app
