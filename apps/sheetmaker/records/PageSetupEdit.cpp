// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/PageSetupEdit.h"

#include "base/text/Keywords.h"
#include "commandline/Refusal.h"
#include "commandline/Suggest.h"
#include "layouts/PlotOptions.h"
#include "preferences/SettingNames.h"
#include "records/RecordEditor.h"
#include "settings/PageSetupFields.h"
#include "settings/mdlDataKegIO.h"

#include <algorithm>
#include <ostream>

namespace sm::app {
namespace {

std::string ValueText(const PageSetupRecord& record, const PageSetupField& field)
{
    const AcadVariant value = FieldValue(record, field);
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* number = std::get_if<double>(&value))
        return NumberText(*number);
    return std::to_string(std::get<std::int32_t>(value));
}

std::vector<std::string> FieldNames()
{
    std::vector<std::string> names;
    for (const PageSetupField& field : PageSetupFields())
        names.emplace_back(field.valueName);
    return names;
}

const PageSetupField& FieldNamed(const std::string& name)
{
    const std::string found = FindName(name, FieldNames());
    if (found.empty()) {
        const std::string suggestion = Suggestion(name, FieldNames());
        throw Refusal{kExitUsage, "a page setup has no \"" + name + "\"" +
                                      (suggestion.empty() ? "; --show lists what it has" : suggestion)};
    }
    return *std::find_if(PageSetupFields().begin(), PageSetupFields().end(),
                         [&](const PageSetupField& field) { return found == field.valueName; });
}

class PageSetupEdit {
public:
    PageSetupEdit(const PageSetupJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_out(out), m_console(err, false), m_editor(*job.drawing, install, m_console)
    {
        const CustomPageSetup read = ReadCustomPageSetup(m_editor.Context(), m_editor.Document(), m_record);
        if (read == CustomPageSetup::HostError)
            throw Refusal{kExitFailed, *job.drawing + ": its page setup can't be read"};
        m_isThere = read == CustomPageSetup::Read;
    }

    void Run()
    {
        if (m_job.remove)
            Remove();
        else if (!m_job.assignments.empty())
            Set();
        else
            Show();
    }

private:
    void Show()
    {
        if (!m_isThere)
            m_console.Line(*m_job.drawing + " has no page setup of its own; these are the defaults");
        for (const PageSetupField& field : PageSetupFields())
            m_out << field.valueName << " = " << ValueText(m_record, field) << "\n";
    }

    void Set()
    {
        // The name of a paper sets its sides; who gives both means the sides.
        const auto namesPaper = [](const std::string& assignment) {
            return base::SameAscii(assignment.substr(0, assignment.find('=')), SettingNamed("CanonicalMediaName").name);
        };
        for (const bool paper : {true, false})
            for (const std::string& assignment : m_job.assignments)
                if (namesPaper(assignment) == paper)
                    Assign(assignment);
        MendScale(m_record);
        WriteCustomPageSetup(m_editor.Context(), m_editor.Document(), m_record);
        PageSetupRecord kept;
        m_editor.RequireKept(
            ReadCustomPageSetup(m_editor.Context(), m_editor.Document(), kept) == CustomPageSetup::Read && Same(kept));
        m_editor.Save();
        m_out << *m_job.drawing
              << ": the page setup was kept; \"sheetmaker convert DRAWING --page-setup custom\" plots with it\n";
    }

    /// As the drawing keeps it: text by text.
    [[nodiscard]] bool Same(const PageSetupRecord& kept) const
    {
        return std::all_of(PageSetupFields().begin(), PageSetupFields().end(), [&](const PageSetupField& field) {
            return ValueText(kept, field) == ValueText(m_record, field);
        });
    }

    void Assign(const std::string& assignment)
    {
        const std::size_t sign = assignment.find('=');
        if (sign == std::string::npos)
            throw Refusal{kExitUsage, "\"" + assignment + "\" is no NAME=VALUE"};
        const PageSetupField& field = FieldNamed(assignment.substr(0, sign));
        const std::string value = assignment.substr(sign + 1);
        const Setting& setting = *FindSetting(field.valueName);
        if (&setting == &SettingNamed("CanonicalMediaName"))
            return TakePaper(value);
        const CheckedValue checked = CheckValue(setting, value, {});
        if (!checked.stored)
            throw Refusal{kExitUsage, std::string(field.valueName) + " " + checked.error};
        CheckRecordText(field.valueName, *checked.stored);
        SetFieldText(m_record, field, checked.stored->empty() ? DefaultText(setting) : *checked.stored);
        if (const auto* text = std::get_if<std::string PageSetupRecord::*>(&field.member)) // empty is a text, too
            m_record.** text = *checked.stored;
    }

    /// Papers are told apart by their sizes.
    void TakePaper(const std::string& name)
    {
        cadhost::PlotWishes wishes;
        wishes.paper = PaperCalled(name);
        const std::int32_t rotation = m_record.PlotRotation;
        ApplyWishes(wishes, m_record);
        m_record.PlotRotation = rotation;
    }

    void Remove()
    {
        if (!m_isThere) {
            m_out << *m_job.drawing << " has no page setup of its own\n";
            return;
        }
        m_editor.RemoveRecord("Plots");
        m_editor.Save();
        m_out << *m_job.drawing << ": its page setup was removed\n";
    }

    const PageSetupJob& m_job;
    std::ostream& m_out;
    terminal::Console m_console;
    RecordEditor m_editor;
    PageSetupRecord m_record;
    bool m_isThere = false;
};

} // namespace

bool IsPageSetupEdit(const PageSetupJob& job)
{
    return job.show || job.remove || !job.assignments.empty();
}

int RunPageSetupEdit(const PageSetupJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    return RunEdit("page-setup", err, [&] {
        if (int{job.show} + int{job.remove} + int{!job.assignments.empty()} > 1)
            throw Refusal{kExitUsage, "--show, --set and --remove exclude each other"};
        if (!job.drawing)
            throw Refusal{kExitUsage, "--show, --set and --remove need a drawing; \"sheetmaker list\" and \"set\" have "
                                      "the global page setup"};
        PageSetupEdit(job, install, out, err).Run();
    });
}

} // namespace sm::app
