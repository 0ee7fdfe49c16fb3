// SPDX-License-Identifier: GPL-3.0-or-later
// What became of a drawing: for the lines on the terminal, the JSON report and the exit code.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace sm::app {

struct SheetReport {
    std::string name;
    std::int32_t status = 0;
    std::int32_t marks = 0;
    friend bool operator==(const SheetReport&, const SheetReport&) = default;
};

/// A kind of entity and how many of it weren't drawn.
struct NotDrawn {
    std::string kind;
    std::uint64_t count = 0;
    friend bool operator==(const NotDrawn&, const NotDrawn&) = default;
};

struct Damage {
    std::string text;
    std::uint32_t count = 0;
    std::uint32_t line = 0; ///< of the first one; 0 when it has none
    bool contentLost = false;
    friend bool operator==(const Damage&, const Damage&) = default;
};

/// Entities of the converted spaces; all but the first sum up to it.
struct EntityCounts {
    std::uint64_t read = 0, drawn = 0, hidden = 0, offPage = 0, notReached = 0, notDrawn = 0;
    friend bool operator==(const EntityCounts&, const EntityCounts&) = default;
};

/// Milliseconds of wall time.
struct RunTimes {
    double open = 0, plot = 0, pages = 0, assemble = 0, total = 0;
    friend bool operator==(const RunTimes&, const RunTimes&) = default;
};

/// A file that the PDF holds.
struct AttachedFile {
    std::string name, path;
    std::uint64_t bytes = 0;
    friend bool operator==(const AttachedFile&, const AttachedFile&) = default;
};

struct DrawingReport {
    std::string drawing; ///< as given
    std::string pdfPath; ///< empty when no PDF was made
    int exitCode = 0;    ///< as if it had been the only drawing, before --strict
    std::string failure; ///< one line: the sheet and the reason; empty when it was converted
    bool isLate = false; ///< its process was ended for taking too long; only this program's own, in no report
    std::int32_t saveStatus = 0;
    std::uint64_t pages = 0, pdfBytes = 0;
    std::vector<SheetReport> sheets;
    EntityCounts entities;
    std::vector<NotDrawn> notDrawn;
    std::vector<Damage> damage;
    std::vector<std::string> substitutions; ///< fonts that stood in for others
    std::vector<std::string> remarks;       ///< what was drawn otherwise than the drawing has it
    std::vector<std::string> notes;         ///< what is not done or was carried past, in plain words
    std::vector<AttachedFile> attachments;
    std::vector<std::string> attachmentsLost; ///< paths of files that the PDF lacks; --strict fails it
    std::vector<std::string> marksLost;       ///< marks that no page of the PDF shows; --strict fails it
    bool logLost = false;                     ///< no log could be kept; --strict fails it
    bool notToScale = false;                  ///< a sheet was plotted to fit on a smaller paper; --strict fails it
    RunTimes times;
    friend bool operator==(const DrawingReport&, const DrawingReport&) = default;

    [[nodiscard]] bool Converted() const { return failure.empty(); }
    [[nodiscard]] bool ContentLost() const;
};

/// Number of the form of the reports; share/sheetmaker-pdf/report.schema.json describes it.
inline constexpr int kReportSchema = 1;
/// Stands for standard input as a drawing, and for standard output as a PDF.
inline constexpr const char* kStandardStream = "-";

/// One JSON object; `indent` -1 puts it on one line. Text that isn't UTF-8 is mended, but for the fields with URIs.
std::string ToJson(const DrawingReport& report, int indent);
/// The report of a whole run. `program` is its name with the version.
std::string ToJson(const std::vector<DrawingReport>& reports, const std::string& program);
/// A drawing's line of a report that is written while the run goes on.
std::string ToJsonLine(const DrawingReport& report);
/// The inverse of the first; throws std::exception for anything else. A path that isn't UTF-8 comes back absolute.
DrawingReport ReportFromJson(const std::string& json);

/// "plan.dxf -> plan.pdf, 3 pages", or empty for a drawing that wasn't converted.
std::string ResultLine(const DrawingReport& report);
/// What the user should know beside that, a line each, without the drawing's name.
std::vector<std::string> RemarkLines(const DrawingReport& report);

/// The exit code of a whole run, from its drawings one by one.
class ExitTally {
public:
    explicit ExitTally(bool strict) : m_strict(strict) {}
    void Add(const DrawingReport& report);
    [[nodiscard]] int Code() const;

private:
    bool m_strict;
    std::size_t m_count = 0;
    int m_outweighs = 0; ///< a missing tool, or the end that somebody asked for
    bool m_usage = false, m_failed = false, m_lost = false;
};
int ExitCodeOf(const std::vector<DrawingReport>& reports, bool strict);

} // namespace sm::app
