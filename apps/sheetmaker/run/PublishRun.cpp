// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/PublishRun.h"

#include "base/files/MappedFile.h"
#include "base/files/Paths.h"
#include "commandline/ExitCodes.h"
#include "commandline/Refusal.h"
#include "hostobjects/cNativeDoc.h"
#include "plugin/cPlugin.h"
#include "plugin/mdlAcadHelper.h"
#include "report/RunOutcome.h"
#include "run/HostReport.h"
#include "run/NativeDocuments.h"
#include "run/RunSession.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace sm::app {
namespace {

/// What a sheet is made with, from the stored settings.
struct SheetMaking {
    std::int32_t resolution = 1200;
    std::string jobOptions;
};

SheetMaking MakingOf(CallContext& context)
{
    cPlugin plugin(context);
    IPlugin& settings = plugin;
    return {settings.Optimization() == 0 ? 1200 : 600, settings.JobOptionsFile()};
}

DrawingTask WithLog(DrawingTask task, const SetLog& log)
{
    task.logFileName = log.SheetLogName();
    task.logFolder = log.Folder();
    return task;
}

/// Each drawing once. Those of which a layout is named are looked at before the first sheet when nothing may be
/// missing.
std::vector<std::string> InOrderOfOpening(std::vector<SetPart> parts, bool keepGoing)
{
    if (!keepGoing)
        std::stable_partition(parts.begin(), parts.end(), [](const SetPart& part) { return part.layout.has_value(); });
    std::vector<std::string> drawings;
    for (const SetPart& part : parts)
        if (std::ranges::find(drawings, part.drawing) == drawings.end())
            drawings.push_back(part.drawing);
    return drawings;
}

class SetRun {
public:
    SetRun(const DrawingTask& task, SetLog& log, const Install& install, terminal::Console& console,
           DrawingReport& report)
        : m_task(task), m_install(install), m_report(report), m_log(log),
          m_session(WithLog(task, log), install, console, report)
    {
    }

    void Run(const std::vector<SetPart>& parts, SetWishes wishes, const SetProgress& begins)
    {
        m_session.Around().HeadPages(
            [this](std::size_t page) { return page <= m_headings.size() ? m_headings[page - 1] : std::string(); });
        m_document = m_session.Context().surroundings.library.CreatePubDoc();
        m_making = MakingOf(m_session.Context());
        const bool keepGoing = wishes.keepGoing;
        m_session.Expect(InOrderOfOpening(parts, keepGoing), wishes.inHand - 1);
        if (!keepGoing)
            RefuseMissingLayouts(parts);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            begins(i);
            if (!AddDrawing(parts[i], keepGoing) && !keepGoing)
                return;
        }
        begins(parts.size());
        if (m_sheets == 0)
            m_report.failure = "no sheet could be converted; " + m_task.drawing + " was not written";
        else
            Save();
    }

private:
    [[nodiscard]] ConvertOptions OptionsFor(const SetPart& part) const;
    void RefuseMissingLayouts(const std::vector<SetPart>& parts);
    bool AddDrawing(const SetPart& part, bool keepGoing);
    void Merge(const DrawingReport& drawing);
    bool AddSheets(const SetPart& part, bool keepGoing, DrawingReport& told);
    bool AddSheet(INativeDoc& native, const std::string& layout, std::int32_t index, std::int32_t count,
                  std::string& reason);
    void Save();

    const DrawingTask& m_task;
    const Install& m_install;
    DrawingReport& m_report;
    SetLog& m_log;
    RunSession m_session;
    std::shared_ptr<NativeDocOwner> m_owner = std::make_shared<NativeDocOwner>();
    std::shared_ptr<IPubDoc> m_document;
    SheetMaking m_making;
    std::size_t m_sheets = 0;
    std::string m_heading;               ///< of the drawing's sheets
    std::vector<std::string> m_headings; ///< of the pages, in their order
};

/// The sheets of a native document that a selection means, in the order of their tabs.
std::vector<std::string> SheetNames(INativeDoc& native, const LayoutSelection& selection)
{
    if (selection.whatToPlot == kPlotCurrentTab)
        return {*selection.activeLayout};
    std::vector<std::string> names;
    const std::int32_t count = native.SheetCount();
    for (std::int32_t i = 1; i < count; ++i) { // the first is the model
        const AcadVariant name = native.GetSheetName(i);
        if (const auto* text = std::get_if<std::string>(&name))
            names.push_back(*text);
    }
    return names;
}

/// Before the first sheet is plotted. A drawing that can't be read is told when its turn comes.
void SetRun::RefuseMissingLayouts(const std::vector<SetPart>& parts)
{
    for (const SetPart& part : parts) {
        LayoutSelection selection;
        try {
            if (part.layout) {
                m_session.Open(part.drawing);
                selection = m_session.Select(OptionsFor(part));
            }
        } catch (const Refusal&) {
            throw;
        } catch (const std::exception&) {
            continue;
        }
        if (!selection.error.empty())
            throw Refusal{kExitUsage, part.drawing + " " + selection.error};
    }
}

ConvertOptions SetRun::OptionsFor(const SetPart& part) const
{
    ConvertOptions options = m_task.options;
    if (part.layout)
        options.layoutNames = {*part.layout};
    return options;
}

bool SetRun::AddDrawing(const SetPart& part, bool keepGoing)
{
    DrawingReport told;
    told.drawing = part.drawing;
    bool added = false;
    try {
        added = AddSheets(part, keepGoing, told);
    } catch (const std::bad_alloc&) {
        told.failure = "there is not enough memory";
    } catch (const Refusal& refusal) {
        if (!keepGoing || refusal.exitCode == kExitUsage) // no sheet of the set can be kept
            throw;
        told.failure = refusal.text;
    } catch (const std::exception& error) {
        told.failure = error.what();
    }
    if (told.failure.starts_with(part.drawing + ": "))
        told.failure.erase(0, part.drawing.size() + 2);
    for (const std::string& line : RemarkLines(told))
        m_report.notes.push_back(part.drawing + ": " + line);
    Merge(told);
    if (!added && !keepGoing)
        m_report.failure = m_task.drawing + " was not written; --keep-going saves the sheets that succeed";
    if (!added)
        m_report.exitCode = kExitFailed;
    return added;
}

/// What --strict asks of the set, and what its report counts.
void SetRun::Merge(const DrawingReport& drawing)
{
    m_report.damage.insert(m_report.damage.end(), drawing.damage.begin(), drawing.damage.end());
    m_report.notDrawn.insert(m_report.notDrawn.end(), drawing.notDrawn.begin(), drawing.notDrawn.end());
    m_report.remarks.insert(m_report.remarks.end(), drawing.remarks.begin(), drawing.remarks.end());
    m_report.substitutions.insert(m_report.substitutions.end(), drawing.substitutions.begin(),
                                  drawing.substitutions.end());
    m_report.notToScale = m_report.notToScale || drawing.notToScale;
    const EntityCounts& more = drawing.entities;
    EntityCounts& counts = m_report.entities;
    counts = {counts.read + more.read,       counts.drawn + more.drawn,           counts.hidden + more.hidden,
              counts.offPage + more.offPage, counts.notReached + more.notReached, counts.notDrawn + more.notDrawn};
}

/// Closes the native document and lets the host forget the drawing, whatever happened to its sheets.
class OpenNative {
public:
    OpenNative(CallContext& context, const std::shared_ptr<NativeDocOwner>& owner,
               const std::shared_ptr<IAcadDocument>& document)
        : m_native(std::make_shared<cNativeDoc>(context))
    {
        const std::int16_t index = owner->List().Add(m_native);
        if (m_native->InitGetDoc(index, document->Application(), owner, document) == kTrue)
            return;
        m_native->CloseDoc(kFalse);
        throw std::runtime_error("the drawing can't be used as a native document");
    }
    ~OpenNative() { m_native->CloseDoc(kFalse); }
    OpenNative(const OpenNative&) = delete;
    OpenNative& operator=(const OpenNative&) = delete;
    INativeDoc& operator*() { return *m_native; }

private:
    std::shared_ptr<INativeDoc> m_native;
};

bool SetRun::AddSheets(const SetPart& part, bool keepGoing, DrawingReport& told)
{
    m_heading = base::ToText(base::ToPath(part.drawing).stem());
    m_session.Open(part.drawing);
    m_session.RefuseTarget(*m_task.savePath);
    const LayoutSelection selection = m_session.Select(OptionsFor(part));
    OpenNative native(m_session.Context(), m_owner, m_session.Document());
    if (!selection.error.empty())
        throw std::runtime_error("the drawing " + selection.error);
    m_session.RefuseAttachments(selection);
    const std::vector<std::string> names = SheetNames(*native, selection);
    bool allAdded = true;
    for (std::size_t i = 0; i < names.size() && (allAdded || keepGoing); ++i) {
        std::string reason;
        const auto number = static_cast<std::int32_t>(i + 1);
        if (AddSheet(*native, names[i], number, static_cast<std::int32_t>(names.size()), reason))
            continue;
        allAdded = false;
        told.notes.push_back("failed: " + (reason.empty()
                                               ? m_session.Watcher().FailedSheet(m_session.HostReport().plotFailure)
                                               : reason));
    }
    TakeHostReport(m_session.HostReport(), told);
    return allAdded;
}

bool SetRun::AddSheet(INativeDoc& native, const std::string& layout, std::int32_t index, std::int32_t count,
                      std::string& reason)
{
    const std::size_t watched = m_report.sheets.size();
    m_session.Watcher().SheetBegins(layout, index, count);
    const std::int32_t status =
        native.AddToPubDoc(m_document, layout, kFalse, m_making.resolution, m_making.jobOptions);
    m_log.TakeSheetLog();
    if (status < 0 && m_report.sheets.size() == watched)
        reason = "sheet \"" + layout + "\": " + StatusText(status);
    if (status >= 0)
        m_headings.push_back(m_heading);
    m_sheets += status < 0 ? 0 : 1;
    return status >= 0;
}

void SetRun::Save()
{
    CallContext& context = m_session.Context();
    const std::string path = *m_task.savePath;
    const LocalDateTime now = context.surroundings.clock.Now();
    m_document->SetDocSummary(base::ToText(base::ToPath(path).stem()), m_install.LoginName(), now, now);
    m_document->SetDocInfo("Creator", std::string(kProductTitle) + " " + ProductVersion(context.surroundings));
    const std::size_t told = m_report.remarks.size(); // each drawing's, by its name
    const ConvertOptions& options = m_task.options;
    const std::int32_t status = m_document->SaveToPdf(path, 0, options.open, !options.keepPs);
    m_report.saveStatus = status;
    for (std::size_t i = told; i < m_report.remarks.size(); ++i) // of the set's stamps
        m_report.notes.push_back("note: " + m_report.remarks[i]);
    if (status == kSavedButNoViewer)
        m_report.notes.push_back(m_document->LastErrorText());
    if (!IsSaved(status)) {
        m_report.exitCode = ExitCodeOfFailedSave(status);
        m_report.failure = m_document->LastErrorText();
        m_log.Add("ERROR SAVING PDF FILE: " + std::to_string(status) + ", " + m_report.failure);
        return;
    }
    m_log.Add("PDF FILE SAVED");
    m_report.pdfPath = path;
    if (m_report.exitCode == kExitDone && m_report.ContentLost())
        m_report.exitCode = kExitContentLost;
}

} // namespace

DrawingReport PublishSet(const std::vector<SetPart>& parts, SetWishes wishes, const DrawingTask& task, SetLog& log,
                         const Install& install, terminal::Console& console, const SetProgress& begins)
{
    DrawingReport report;
    report.drawing = task.drawing;
    try {
        SetRun(task, log, install, console, report).Run(parts, wishes, begins);
        base::MappedFile::RequireWhole();
    } catch (const Refusal& refusal) {
        report.exitCode = refusal.exitCode;
        report.failure = refusal.text;
    } catch (const std::bad_alloc&) {
        report.failure = "there is not enough memory";
    } catch (const std::exception& error) {
        report.failure = error.what();
    }
    report.logLost = !log.Finish();
    if (!report.failure.empty() && report.exitCode == kExitDone)
        report.exitCode = kExitFailed;
    console.ClearProgress();
    return report;
}

} // namespace sm::app
