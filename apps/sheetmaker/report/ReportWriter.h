// SPDX-License-Identifier: GPL-3.0-or-later
// Hands the results of a run on as they come: lines on the terminal, and the report that was asked for.
#pragma once

#include "commandline/Jobs.h"
#include "report/RunReport.h"
#include "terminal/Console.h"

#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace sm::app {

struct ReportWishes {
    ReportForm form = ReportForm::None;
    Talk talk = Talk::Normal;
    bool strict = false;
    bool outIsTaken = false; ///< standard output carries a PDF: results go to the console
    std::string program;     ///< its name with the version
};

class ReportWriter {
public:
    /// `out` and `console` outlive this object.
    ReportWriter(ReportWishes wishes, std::ostream& out, terminal::Console& console);

    /// A drawing has ended, whatever its place in the order.
    void Ended(const DrawingReport& report);
    /// A drawing and all before it have ended; `lines` is what came up on the way.
    void Told(const DrawingReport& report, const std::string& lines);
    /// The result alone of one that is told otherwise.
    void Result(const DrawingReport& report);
    /// After the last one. False when standard output didn't take everything, which is told.
    bool Finish();
    /// Of all drawings so far.
    [[nodiscard]] int ExitCode() const { return m_exit.Code(); }

private:
    void TellLines(const DrawingReport& report, const std::string& lines);
    void TellSheets(const DrawingReport& report);
    [[nodiscard]] std::vector<std::string> NewSubstitutions(const DrawingReport& report);

    ReportWishes m_wishes;
    std::ostream& m_out;
    terminal::Console& m_console;
    ExitTally m_exit;
    std::vector<DrawingReport> m_reports;      ///< kept only where they are wanted together
    std::set<std::string> m_toldSubstitutions; ///< fonts are told once a run
};

} // namespace sm::app
