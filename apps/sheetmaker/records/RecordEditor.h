// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing, open for its records to be read and changed.
#pragma once

#include "base/files/EditLock.h"
#include "run/RunSession.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::app {

class RecordEditor {
public:
    /// Opens the drawing, and keeps other processes from changing it meanwhile: waits for one that does, and throws
    /// Refusal when that takes too long. Throws std::exception for a drawing that can't be read. Numbers are written
    /// and read with ".", whatever the locale.
    RecordEditor(const std::string& drawing, const Install& install, terminal::Console& console);
    RecordEditor(const RecordEditor&) = delete;
    RecordEditor& operator=(const RecordEditor&) = delete;

    [[nodiscard]] CallContext& Context() { return m_session.Context(); }
    /// The user's stored settings.
    [[nodiscard]] IRegistry& Settings() { return Context().surroundings.registry; }
    [[nodiscard]] IAcadDocument& Document() { return *m_session.Document(); }
    [[nodiscard]] const drawing::Drawing& Drawing() { return m_session.Drawing(); }

    /// `wanted` as the drawing spells it. Without it the active layout; where that becomes no page unless somebody says
    /// so, the one sheet that does when there is one, and the console is told either way. `alsoAllowed` are names that
    /// stand for no layout. Throws Refusal for a name that isn't there.
    std::string LayoutName(const std::optional<std::string>& wanted, const std::vector<std::string>& alsoAllowed = {});
    /// Throws with the host's reason when the record just written doesn't read back as it was meant.
    void RequireKept(bool kept) const;
    /// Removes a record. Throws like `RequireKept`.
    void RemoveRecord(const std::string& recordName);
    /// Writes the drawing and closes it; the former file stays as ".bak". Nothing is written for a drawing that is
    /// unchanged. Throws, and the file is as it was.
    void Save();

private:
    std::unique_ptr<base::EditLock> m_lock;
    DrawingTask m_task;
    Install m_install;
    DrawingReport m_report;
    terminal::Console& m_console;
    RunSession m_session;
};

/// Runs `work`; prints "sheetmaker <command>: ..." for what it throws. Returns the exit code.
int RunEdit(const std::string& command, std::ostream& err, const std::function<void()>& work);

/// Throws Refusal when `text` can't stand in a record; `what` names it.
void CheckRecordText(const std::string& what, const std::string& text);

} // namespace sm::app
