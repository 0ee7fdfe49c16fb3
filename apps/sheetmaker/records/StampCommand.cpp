// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/StampCommand.h"

#include "commandline/MarkValues.h"
#include "commandline/NamedNumbers.h"
#include "commandline/Refusal.h"
#include "records/RecordEditor.h"
#include "records/StampList.h"
#include "settings/mdlDataKegIO.h"

#include <fmt/format.h>
#include <ostream>

namespace sm::app {
namespace {

constexpr const char* kDefaultText = "1";

/// A number that means nothing stands for the first, as on the sheet.
std::string JustificationWord(std::int32_t justification)
{
    const std::string word = WordOf(justification, kStampJustifications);
    return word.empty() ? WordsOf(kStampJustifications).front() : word;
}

class StampEdit {
public:
    StampEdit(const StampJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_out(out), m_console(err, false), m_editor(job.drawing, install, m_console)
    {
        ReadStamp(m_editor.Context(), m_editor.Document(), m_stored);
    }

    void Run()
    {
        switch (m_job.action) {
        case RecordAction::List:
            m_out << (m_stored.StampIndex == 0 ? m_job.drawing + " has no stamp" : Described(m_stored)) << "\n";
            return;
        case RecordAction::Remove:
            return Remove();
        case RecordAction::Change:
            return Put(RequireStamp());
        case RecordAction::Add:
            return Put(NewStamp());
        }
    }

private:
    std::string Described(const StampSettings& stamp)
    {
        const StampTexts texts = StoredStampTexts(m_editor.Settings());
        const auto index = static_cast<std::size_t>(stamp.StampIndex);
        return fmt::format("stamp {} \"{}\", {}, {} pt, {}, {}, at {}, on {}", stamp.StampIndex,
                           index < texts.size() ? texts[index] : "", stamp.FontName, stamp.FontSize,
                           ColorText(stamp.Color), JustificationWord(stamp.Justification), PointText(stamp.X, stamp.Y),
                           stamp.LayoutName);
    }

    StampSettings RequireStamp()
    {
        if (m_stored.StampIndex == 0)
            throw Refusal{kExitUsage,
                          m_job.drawing + " has no stamp; \"stamp DRAWING --text N|TEXT --at X,Y\" adds one"};
        return m_stored;
    }

    /// What the options leave open of a stamp that wasn't there.
    StampSettings NewStamp()
    {
        if (!m_job.at)
            throw Refusal{kExitUsage, "--at X,Y is needed: where the stamp stands, in drawing units"};
        StampSettings stamp;
        stamp.LayoutName = kAllLayouts;
        stamp.StampIndex = 1;
        return stamp;
    }

    void Put(StampSettings stamp)
    {
        const bool replaces = m_job.action == RecordAction::Add && m_stored.StampIndex != 0;
        stamp.FontName = m_job.font.value_or(stamp.FontName);
        stamp.FontSize = m_job.size.value_or(stamp.FontSize);
        stamp.Color = m_job.color.value_or(stamp.Color);
        stamp.Justification = m_job.justification.value_or(stamp.Justification);
        if (m_job.at) {
            stamp.X = m_job.at->x;
            stamp.Y = m_job.at->y;
        }
        if (m_job.layout)
            stamp.LayoutName = m_editor.LayoutName(m_job.layout, {kAllLayouts});
        Write(stamp);
        m_out << m_job.drawing << ": " << Described(stamp) << (replaces ? " (in place of the former one)" : "") << "\n";
    }

    void Write(StampSettings& stamp)
    {
        StampChoice choice{stamp.StampIndex, {}, false};
        if (m_job.text || m_job.action == RecordAction::Add) {
            CheckRecordText("the text", m_job.text.value_or(kDefaultText));
            choice = ChooseStamp(StoredStampTexts(m_editor.Settings()), m_job.text.value_or(kDefaultText));
        }
        stamp.StampIndex = choice.index;
        WriteStamp(m_editor.Context(), m_editor.Document(), stamp);
        StampSettings kept;
        ReadStamp(m_editor.Context(), m_editor.Document(), kept);
        m_editor.RequireKept(kept == stamp);
        if (choice.isNew) {
            StoreStampText(m_editor.Settings(), choice);
            m_out << fmt::format("\"{}\" is entry {} of your stamp list now (setting Stamp{})\n", choice.text,
                                 choice.index, choice.index);
        }
        m_editor.Save();
    }

    void Remove()
    {
        RequireStamp();
        m_editor.RemoveRecord("Stamp");
        m_editor.Save();
        m_out << m_job.drawing << ": the stamp was removed\n";
    }

    const StampJob& m_job;
    std::ostream& m_out;
    terminal::Console m_console;
    RecordEditor m_editor;
    StampSettings m_stored;
};

/// Options that would change nothing are told, not passed over.
void RefuseIdleOptions(const StampJob& job)
{
    const bool any = job.text || job.font || job.size || job.color || job.justification || job.layout || job.at;
    const bool edits = job.action == RecordAction::Add || job.action == RecordAction::Change;
    if (any && !edits)
        throw Refusal{kExitUsage, "list and remove take no options"};
    if (!any && job.action == RecordAction::Change)
        throw Refusal{kExitUsage, "change takes at least one of the options"};
}

} // namespace

int RunStamp(const StampJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    return RunEdit("stamp", err, [&] {
        RefuseIdleOptions(job);
        StampEdit(job, install, out, err).Run();
    });
}

} // namespace sm::app
