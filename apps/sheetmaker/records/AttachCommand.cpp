// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/AttachCommand.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "base/text/Utf8.h"
#include "commandline/MarkValues.h"
#include "commandline/Refusal.h"
#include "records/RecordListEditor.h"
#include "settings/mdlDataKegIO.h"

#include <filesystem>
#include <fmt/format.h>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

std::string FullPath(const std::string& file)
{
    return base::ToText(fs::absolute(base::ToPath(file)).lexically_normal());
}

/// The full path of a file that can be attached.
std::string CheckedFile(const std::string& file)
{
    std::error_code unreadable;
    if (!fs::exists(base::ToPath(file), unreadable))
        throw Refusal{kExitUsage, "there is no file " + file};
    if (!fs::is_regular_file(base::ToPath(file), unreadable))
        throw Refusal{kExitUsage, file + " is no plain file"};
    if (!base::MayRead(file, unreadable))
        throw Refusal{kExitUsage, file + " can't be read: you have no permission to"};
    const std::string path = FullPath(file);
    CheckRecordText("the path " + path, path);
    if (!base::IsUtf8(path)) // what a drawing would give back is another name
        throw Refusal{kExitUsage, "the path " + path + " holds bytes that aren't UTF-8; rename the file or its folder"};
    return path;
}

std::string Described(const AttachmentEntry& entry)
{
    return fmt::format("{} at {} on {}", entry.FilePath, PointText(entry.X, entry.Y), entry.LayoutName);
}

std::vector<std::string> NamesOf(const AttachmentEntry& entry)
{
    return {entry.FilePath, base::ToText(base::ToPath(entry.FilePath).filename())};
}

constexpr RecordList<AttachmentEntry> kAttachments{
    "FILE",          "attachment",     "attachments", "attached ", "attached ", "no longer attached: ",
    ReadAttachments, WriteAttachments, Described,     NamesOf};

class AttachEdit {
public:
    AttachEdit(const AttachJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_list(kAttachments, job.drawing, install, out, err)
    {
    }

    void Run()
    {
        switch (m_job.action) {
        case RecordAction::List:
            return m_list.PrintAll();
        case RecordAction::Add:
            return m_list.Add(NewEntry());
        case RecordAction::Change:
            return m_list.Change(Wanted(), [this](AttachmentEntry& entry) { Change(entry); });
        case RecordAction::Remove:
            return m_list.Remove(Wanted());
        }
    }

private:
    /// The one that the command means.
    [[nodiscard]] std::vector<std::string> Wanted() const
    {
        return {m_job.item, m_job.item.empty() ? std::string() : FullPath(m_job.item)};
    }

    AttachmentEntry NewEntry()
    {
        RequireItem(m_job.item, "FILE");
        if (!m_job.at)
            throw Refusal{kExitUsage, "--at X,Y is needed: where the icon stands, in drawing units"};
        return {CheckedFile(m_job.item), m_job.at->x, m_job.at->y, m_list.LayoutName(m_job.layout)};
    }

    void Change(AttachmentEntry& entry)
    {
        if (m_job.file)
            entry.FilePath = CheckedFile(*m_job.file);
        if (m_job.at) {
            entry.X = m_job.at->x;
            entry.Y = m_job.at->y;
        }
        if (m_job.layout)
            entry.LayoutName = m_list.LayoutName(m_job.layout);
    }

    const AttachJob& m_job;
    RecordListEditor<AttachmentEntry> m_list;
};

} // namespace

int RunAttach(const AttachJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    return RunEdit("attach", err, [&] {
        RefuseIdleOptions(job.action, job.file || job.layout || job.at, job.item);
        if (job.file && job.action == RecordAction::Add)
            throw Refusal{kExitUsage, "--file goes with change"};
        AttachEdit(job, install, out, err).Run();
    });
}

} // namespace sm::app
