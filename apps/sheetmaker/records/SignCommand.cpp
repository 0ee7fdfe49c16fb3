// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/SignCommand.h"

#include "commandline/MarkValues.h"
#include "commandline/Refusal.h"
#include "records/RecordListEditor.h"
#include "settings/mdlDataKegIO.h"

#include <algorithm>
#include <fmt/format.h>

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

std::vector<std::string> NamesOf(const SignatureFieldEntry& field)
{
    return {field.FieldName};
}

constexpr RecordList<SignatureFieldEntry> kFields{
    "NAME",     "signature field",   "signature fields",   "added ",  "changed to ",
    "removed ", ReadSignatureFields, WriteSignatureFields, Described, NamesOf};

class SignEdit {
public:
    SignEdit(const SignJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_list(kFields, job.drawing, install, out, err)
    {
    }

    void Run()
    {
        switch (m_job.action) {
        case RecordAction::List:
            return m_list.PrintAll();
        case RecordAction::Add:
            return m_list.Add(NewField());
        case RecordAction::Change:
            return m_list.Change({m_job.item}, [this](SignatureFieldEntry& field) { Change(field); });
        case RecordAction::Remove:
            return m_list.Remove({m_job.item});
        }
    }

private:
    SignatureFieldEntry NewField()
    {
        RequireItem(Trimmed(m_job.item), "NAME");
        if (!m_job.box)
            throw Refusal{kExitUsage, "--rect X1,Y1,X2,Y2 is needed: the field's rectangle, in drawing units"};
        SignatureFieldEntry field;
        SetName(field, m_job.item);
        field.LayoutName = m_list.LayoutName(m_job.layout);
        TakeOptions(field);
        return field;
    }

    void Change(SignatureFieldEntry& field)
    {
        if (m_job.name && Trimmed(*m_job.name) != field.FieldName)
            SetName(field, *m_job.name);
        if (m_job.layout)
            field.LayoutName = m_list.LayoutName(m_job.layout);
        TakeOptions(field);
    }

    void SetName(SignatureFieldEntry& field, const std::string& wanted)
    {
        const std::string name = Trimmed(wanted);
        RequireItem(name, "a name that isn't blank");
        CheckRecordText("the name", name);
        const auto& fields = m_list.Entries();
        if (std::any_of(fields.begin(), fields.end(),
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

    const SignJob& m_job;
    RecordListEditor<SignatureFieldEntry> m_list;
};

} // namespace

int RunSign(const SignJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    return RunEdit("sign", err, [&] {
        RefuseIdleOptions(job.action, job.name || job.label || job.layout || job.box, job.item);
        if (job.name && job.action == RecordAction::Add)
            throw Refusal{kExitUsage, "--name goes with change"};
        SignEdit(job, install, out, err).Run();
    });
}

} // namespace sm::app
