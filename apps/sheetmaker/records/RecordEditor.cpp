// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/RecordEditor.h"

#include "base/files/MappedFile.h"
#include "commandline/MarkValues.h"
#include "commandline/Refusal.h"
#include "commandline/Suggest.h"
#include "drawing/Drawing.h"
#include "screen/KeptBeside.h"
#include "settings/mdlDataKegIO.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace sm::app {
namespace {

/// The records' numbers are read with "." only; a decimal comma would lose what stands behind it.
Install WithDecimalPoint(const Install& install)
{
    Install changed = install;
    changed.environment = [environment = install.environment](const std::string& name) {
        return name == "LC_ALL" ? std::optional<std::string>("C.UTF-8") : environment(name);
    };
    return changed;
}

std::unique_ptr<base::EditLock> Lock(const std::string& drawing)
{
    try {
        return std::make_unique<base::EditLock>(drawing);
    } catch (const base::EditLockHeld& held) {
        throw Refusal{kExitFailed, drawing + ": " + held.what() + " is changing it; try again when that has ended"};
    }
}

} // namespace

RecordEditor::RecordEditor(const std::string& drawing, const Install& install, terminal::Console& console)
    : m_lock(Lock(drawing)), m_task{drawing, {}, {}, {}, {}}, m_install(WithDecimalPoint(install)), m_console(console),
      m_session(m_task, m_install, console, m_report)
{
    m_session.Open(drawing);
}

std::string RecordEditor::LayoutName(const std::optional<std::string>& wanted,
                                     const std::vector<std::string>& alsoAllowed)
{
    if (wanted)
        return m_session.LayoutNamed(*wanted, alsoAllowed);
    std::string active = Document().ActiveLayout()->Name();
    const std::vector<std::string> pages = m_session.PagesByDefault();
    if (std::find(pages.begin(), pages.end(), active) != pages.end())
        return active;
    if (pages.size() == 1) {
        m_console.Line("\"" + pages.front() +
                       "\" is taken, the one layout that becomes a page by itself; --layout names " + "another");
        return pages.front();
    }
    m_console.Line("note: \"" + active + "\" becomes no page unless --layout or --layouts of convert says so; " +
                   QuotedList(pages) + " do");
    return active;
}

void RecordEditor::RequireKept(bool kept) const
{
    if (kept)
        return;
    const std::string& reason = m_session.Watcher().LastCarriedPast();
    constexpr std::string_view kRoutine = "SetDrawingData: ";
    if (reason.starts_with(kRoutine))
        throw std::runtime_error(reason.substr(kRoutine.size()));
    throw std::runtime_error(m_task.drawing + ": the drawing doesn't keep the record as it was meant");
}

void RecordEditor::RemoveRecord(const std::string& recordName)
{
    SetDrawingData(Context(), recordName, {}, Document());
    RequireKept(GetDrawingData(Context(), recordName, 0, Document()).size() < 2);
}

void RecordEditor::Save()
{
    const std::string beside = KeptBeside(m_session.Drawing(), m_task.drawing);
    const bool changed = m_session.Drawing().Modified();
    Document().Close(true);
    if (changed && !beside.empty())
        m_console.Line("note: kept in " + beside + ", since the drawing's release can't hold it");
}

int RunEdit(const std::string& command, std::ostream& err, const std::function<void()>& work)
{
    try {
        work();
        base::MappedFile::RequireWhole();
        return kExitDone;
    } catch (const Refusal& refusal) {
        err << "sheetmaker " << command << ": " << refusal.text << "\n";
        return refusal.exitCode;
    } catch (const drawing::DwgConverterMissing& error) {
        err << "sheetmaker " << command << ": " << error.what() << "\n";
        return kExitToolMissing;
    } catch (const std::exception& error) {
        err << "sheetmaker " << command << ": " << error.what() << "\n";
        return kExitFailed;
    }
}

void CheckRecordText(const std::string& what, const std::string& text)
{
    const std::string error = RecordTextError(text);
    if (!error.empty())
        throw Refusal{kExitUsage, what + " " + error};
}

} // namespace sm::app
