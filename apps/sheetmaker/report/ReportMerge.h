// SPDX-License-Identifier: GPL-3.0-or-later
// Reports of several runs become one.
#pragma once

#include "commandline/Jobs.h"
#include "report/RunReport.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace sm::app {

class ReportMerge {
public:
    /// Adds the drawings of a report, of either form, from the text of the file `name`. A drawing that is there
    /// already, by its URI, is replaced in its place; one from standard input is always another one. A line that breaks
    /// off, as that of a process which was killed, is left out and stands in `Remarks`. Throws Refusal, with file and
    /// line, for what is no report of this schema.
    void Add(const std::string& name, const std::string& text);

    /// What was left out, a line each.
    [[nodiscard]] const std::vector<std::string>& Remarks() const { return m_remarks; }
    /// Those of `drawings` that no report tells of.
    [[nodiscard]] std::vector<std::string> Untold(const std::vector<std::string>& drawings) const;
    /// All as one report; `program` is the name of this one with its version.
    [[nodiscard]] std::string Text(ReportForm form, const std::string& program) const;
    /// As of one run that did all of it.
    [[nodiscard]] int ExitCode(bool strict) const { return ExitCodeOf(m_reports, strict); }

private:
    void AddLine(const std::string& line, const std::string& place, bool mayBreakOff);
    void AddDrawing(const std::string& json, const std::string& place);

    std::vector<std::string> m_lines;     ///< JSON, without the schema's number
    std::vector<DrawingReport> m_reports; ///< the same
    std::map<std::string, std::size_t> m_places;
    std::vector<std::string> m_remarks;
};

} // namespace sm::app
