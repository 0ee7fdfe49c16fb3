// SPDX-License-Identifier: GPL-3.0-or-later
// One run with windows: the plug-in's surroundings on a screen, and the drawing that is open in them.
#pragma once

#include "run/RunSession.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

namespace sm::app {

class ScreenRun {
public:
    /// Opens `drawing`, or none when it is empty. Throws std::exception for one that can't be read. The stored settings
    /// count; numbers are written and read with ".", whatever the locale, since the drawing's records are read so.
    ScreenRun(const std::string& drawing, const Install& install, const ScreenParts& screen,
              terminal::Console& console);
    ScreenRun(const ScreenRun&) = delete;
    ScreenRun& operator=(const ScreenRun&) = delete;

    [[nodiscard]] CallContext& Context() { return m_session.Context(); }
    [[nodiscard]] const SheetWatcher& Watcher() const { return m_session.Watcher(); }
    [[nodiscard]] DrawingReport& Report() { return m_report; }
    [[nodiscard]] std::shared_ptr<IAcadApplication> Application() { return m_session.Application(); }
    /// Null without a drawing.
    [[nodiscard]] const std::shared_ptr<IAcadDocument>& Document() const { return m_session.Document(); }
    /// Makes a layout the active one for this run. Throws Refusal when the drawing has none of that name.
    void Activate(const std::string& layout) { m_session.Activate(layout); }
    [[nodiscard]] RunSession& Session() { return m_session; }
    [[nodiscard]] const Install& Here() const { return m_install; }
    /// Is called once the settings dialog was confirmed and its entries were handed over, before a conversion.
    void OnceKept(std::function<void()> call) { m_onceKept = std::move(call); }
    /// What the host tells of the conversion goes into the report, which then says how it ended.
    void ConcludeConversion();
    /// Writes the changed records; the former file stays as ".bak". False when there was nothing to write. Throws for a
    /// drawing that didn't take a record or can't be written, and the file is as it was.
    bool Save();

private:
    DrawingTask m_task;
    Install m_install;
    DrawingReport m_report;
    RunSession m_session;
    std::function<void()> m_onceKept;
};

/// Writes the drawing and closes it, unless it didn't take one of the records: a drawing that holds half of what was
/// confirmed is never written. Throws then, and when it can't be written. `name` stands for it in messages.
void SaveWhole(const SheetWatcher& watcher, IAcadDocument& document, const std::string& name);

/// Shows a fault, which the error stream has, in a message box when nobody reads that: a box is waited for.
void ShowUnlessRead(const ScreenParts& screen, const std::string& text);
/// Prints "sheetmaker <command>: <text>", and shows the text as above.
void TellOnScreen(const std::string& command, const ScreenParts& screen, std::ostream& err, const std::string& text);

/// Runs `work`, which gives the exit code, and tells what it throws.
int RunOnScreen(const std::string& command, const ScreenParts& screen, std::ostream& err,
                const std::function<int()>& work);

} // namespace sm::app
