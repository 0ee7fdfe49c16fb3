#include "records/SignCommand.h"

#include "commandline/ListItem.h"
#include "commandline/MarkValues.h"
#include "commandline/Refusal.h"
#include "records/RecordEditor.h"
#include "settings/mdlDataKegIO.h"

#include <algorithm>
#include <fmt/format.h>
#include <ostream>

namespace sm::app {
namespace {

/// Blanks round a name don't stay in the record.
std::string Trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Described(const SignatureFieldEntry& field)
{
    return fmt::format("signature field \"{}\", \"{}\", {},{} on {}", field.FieldName, field.FieldLabel,
                       PointText(field.X1, field.Y1), PointText(field.X2, field.Y2), field.LayoutName);
}

class SignEdit {
public:
    SignEdit(const SignJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_out(out), m_console(err, false), m_editor(job.drawing, install, m_console)
    {
        ReadSignatureFields(m_editor.Context(), m_editor.Document(), m_fields);
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
        for (std::size_t i = 0; i < m_fields.size(); ++i)
            m_out << i + 1 << "  " << Described(m_fields[i]) << "\n";
        if (m_fields.empty())
            m_out << m_job.drawing << " has no signature fields\n";
    }

    void Add()
    {
        RequireItem(Trimmed(m_job.item), "NAME");
        if (!m_job.box)
            throw Refusal{kExitUsage, "--rect X1,Y1,X2,Y2 is needed: the field's rectangle, in drawing units"};
        SignatureFieldEntry field;
        SetName(field, m_job.item);
        field.LayoutName = m_editor.LayoutName(m_job.layout);
        TakeOptions(field);
        m_fields.push_back(field);
        Save("added " + Described(field));
    }

    void Change()
    {
        SignatureFieldEntry& field = m_fields[Position()];
        if (m_job.name && Trimmed(*m_job.name) != field.FieldName)
            SetName(field, *m_job.name);
        if (m_job.layout)
            field.LayoutName = m_editor.LayoutName(m_job.layout);
        TakeOptions(field);
        Save("changed to " + Described(field));
    }

    void Remove()
    {
        const std::size_t position = Position();
        const std::string removed = Described(m_fields[position]);
        m_fields.erase(m_fields.begin() + static_cast<std::ptrdiff_t>(position));
        Save("removed " + removed);
    }

    void SetName(SignatureFieldEntry& field, const std::string& wanted)
    {
        const std::string name = Trimmed(wanted);
        RequireItem(name, "a name that isn't blank");
        CheckRecordText("the name", name);
        if (std::any_of(m_fields.begin(), m_fields.end(),
                        [&](const SignatureFieldEntry& other) { return other.FieldName == name; }))
            throw Refusal{kExitUsage, m_job.drawing + " has a signature field \"" + name +
                                          "\" already; \"sign DRAWING change\" changes it"};
        field.FieldName = name;
    }

    void TakeOptions(SignatureFieldEntry& field)
    {
        if (m_job.label) {
            field.FieldLabel = Trimmed(*m_job.label);
            CheckRecordText("the label", field.FieldLabel);
        }
        if (m_job.box) {
            field.X1 = m_job.box->x1;
            field.Y1 = m_job.box->y1;
            field.X2 = m_job.box->x2;
            field.Y2 = m_job.box->y2;
        }
    }

    /// Where the field stands that the command names.
    std::size_t Position()
    {
        RequireItem(m_job.item, "NAME");
        std::vector<std::vector<std::string>> names;
        for (const SignatureFieldEntry& field : m_fields)
            names.push_back({field.FieldName});
        return FindItem({m_job.item}, names, m_job.drawing, "signature field");
    }

    void Save(const std::string& done)
    {
        WriteSignatureFields(m_editor.Context(), m_editor.Document(), m_fields);
        std::vector<SignatureFieldEntry> kept;
        ReadSignatureFields(m_editor.Context(), m_editor.Document(), kept);
        m_editor.RequireKept(kept == m_fields);
        m_editor.Save();
        m_out << m_job.drawing << ": " << done << "\n";
    }

    const SignJob& m_job;
    std::ostream& m_out;
    terminal::Console m_console;
    RecordEditor m_editor;
    std::vector<SignatureFieldEntry> m_fields;
};

/// Options that would change nothing are told, not passed over.
void RefuseIdleOptions(const SignJob& job)
{
    const bool any = job.name || job.label || job.layout || job.box;
    const bool edits = job.action == RecordAction::Add || job.action == RecordAction::Change;
    if (any && !edits)
        throw Refusal{kExitUsage, "list and remove take no options"};
    if (job.action == RecordAction::List && !job.item.empty())
        throw Refusal{kExitUsage, "list shows all; it takes no name"};
    if (!any && job.action == RecordAction::Change)
        throw Refusal{kExitUsage, "change takes at least one of the options"};
    if (job.name && job.action == RecordAction::Add)
        throw Refusal{kExitUsage, "--name goes with change"};
}

} // namespace

int RunSign(const SignJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    return RunEdit("sign", err, [&] {
        RefuseIdleOptions(job);
        SignEdit(job, install, out, err).Run();
    });
}

} // namespace sm::app
