#include "records/AttachCommand.h"

#include "commandline/ListItem.h"
#include "commandline/MarkValues.h"
#include "commandline/Refusal.h"
#include "records/RecordEditor.h"
#include "settings/mdlDataKegIO.h"

#include <filesystem>
#include <fmt/format.h>
#include <ostream>
#include <unistd.h>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

std::string FullPath(const std::string& file)
{
    return fs::absolute(file).lexically_normal().string();
}

/// The full path of a file that can be attached.
std::string CheckedFile(const std::string& file)
{
    std::error_code unreadable;
    if (!fs::exists(file, unreadable))
        throw Refusal{kExitUsage, "there is no file " + file};
    if (!fs::is_regular_file(file, unreadable))
        throw Refusal{kExitUsage, file + " is no plain file"};
    if (access(file.c_str(), R_OK) != 0)
        throw Refusal{kExitUsage, file + " can't be read: you have no permission to"};
    const std::string path = FullPath(file);
    CheckRecordText("the path " + path, path);
    return path;
}

std::string Described(const AttachmentEntry& entry)
{
    return fmt::format("{} at {} on {}", entry.FilePath, PointText(entry.X, entry.Y), entry.LayoutName);
}

class AttachEdit {
public:
    AttachEdit(const AttachJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_out(out), m_console(err, false), m_editor(job.drawing, install, m_console)
    {
        ReadAttachments(m_editor.Context(), m_editor.Document(), m_entries);
    }

    void Run()
    {
        switch (m_job.action) {
        case RecordAction::List:
            return List();
        case RecordAction::Add:
            return Add();
        case RecordAction::Change:
            return Change();
        case RecordAction::Remove:
            return Remove();
        }
    }

private:
    void List()
    {
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_out << i + 1 << "  " << Described(m_entries[i]) << "\n";
        if (m_entries.empty())
            m_out << m_job.drawing << " has no attachments\n";
    }

    void Add()
    {
        RequireItem(m_job.item, "FILE");
        if (!m_job.at)
            throw Refusal{kExitUsage, "--at X,Y is needed: where the icon stands, in drawing units"};
        m_entries.push_back({CheckedFile(m_job.item), m_job.at->x, m_job.at->y, m_editor.LayoutName(m_job.layout)});
        Save("attached " + Described(m_entries.back()));
    }

    void Change()
    {
        AttachmentEntry& entry = m_entries[Position()];
        if (m_job.file)
            entry.FilePath = CheckedFile(*m_job.file);
        if (m_job.at) {
            entry.X = m_job.at->x;
            entry.Y = m_job.at->y;
        }
        if (m_job.layout)
            entry.LayoutName = m_editor.LayoutName(m_job.layout);
        Save("attached " + Described(entry));
    }

    void Remove()
    {
        const std::size_t position = Position();
        const std::string removed = Described(m_entries[position]);
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(position));
        Save("no longer attached: " + removed);
    }

    /// Where the attachment stands that the command names.
    std::size_t Position()
    {
        RequireItem(m_job.item, "FILE");
        std::vector<std::vector<std::string>> names;
        for (const AttachmentEntry& entry : m_entries)
            names.push_back({entry.FilePath, fs::path(entry.FilePath).filename().string()});
        return FindItem({m_job.item, FullPath(m_job.item)}, names, m_job.drawing, "attachment");
    }

    void Save(const std::string& done)
    {
        WriteAttachments(m_editor.Context(), m_editor.Document(), m_entries);
        std::vector<AttachmentEntry> kept;
        ReadAttachments(m_editor.Context(), m_editor.Document(), kept);
        m_editor.RequireKept(kept == m_entries);
        m_editor.Save();
        m_out << m_job.drawing << ": " << done << "\n";
    }

    const AttachJob& m_job;
    std::ostream& m_out;
    terminal::Console m_console;
    RecordEditor m_editor;
    std::vector<AttachmentEntry> m_entries;
};

/// Options that would change nothing are told, not passed over.
void RefuseIdleOptions(const AttachJob& job)
{
    const bool any = job.file || job.layout || job.at;
    const bool edits = job.action == RecordAction::Add || job.action == RecordAction::Change;
    if (any && !edits)
        throw Refusal{kExitUsage, "list and remove take no options"};
    if (job.action == RecordAction::List && !job.item.empty())
        throw Refusal{kExitUsage, "list shows all; it takes no name"};
    if (!any && job.action == RecordAction::Change)
        throw Refusal{kExitUsage, "change takes at least one of the options"};
    if (job.file && job.action == RecordAction::Add)
        throw Refusal{kExitUsage, "--file goes with change"};
}

} // namespace

int RunAttach(const AttachJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    return RunEdit("attach", err, [&] {
        RefuseIdleOptions(job);
        AttachEdit(job, install, out, err).Run();
    });
}

} // namespace sm::app
