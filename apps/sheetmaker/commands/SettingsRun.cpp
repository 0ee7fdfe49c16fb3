// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/SettingsRun.h"

#include "base/files/Paths.h"
#include "commandline/ExitCodes.h"
#include "drawing/Drawing.h"
#include "plugin/cPlugin.h"
#include "plugin/mdlAcadHelper.h"
#include "run/UnplottedMarks.h"
#include "screen/KeptBeside.h"
#include "screen/RunEndText.h"
#include "settings/mdlDataKegIO.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <fmt/format.h>
#include <ostream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kHelpSignatureFields = 440;

/// What is left of the signature fields that the dialog leaves out.
std::string WhatStays(const std::string& records)
{
    if (fs::exists(base::ToPath(records)))
        return "The drawing as it is now stays as\r\n" + records + ".bak";
    return "The drawing itself stays as it is; what is kept for it goes into\r\n" + records;
}

/// The list beside the dialog, while the dialog may be shown.
class Beside {
public:
    Beside(beside::ICompany* company, beside::ISheetList& sheets) : m_company(company)
    {
        if (m_company != nullptr)
            m_company->StandBeside(&sheets);
    }
    ~Beside()
    {
        if (m_company != nullptr)
            m_company->StandBeside(nullptr);
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

private:
    beside::ICompany* m_company;
};

/// `later` over `before`: of two fields of one name the later one.
std::vector<SignatureFieldEntry> Joined(std::vector<SignatureFieldEntry> before,
                                        const std::vector<SignatureFieldEntry>& later)
{
    std::erase_if(before, [&](const SignatureFieldEntry& field) {
        return std::any_of(later.begin(), later.end(),
                           [&](const SignatureFieldEntry& other) { return other.FieldName == field.FieldName; });
    });
    before.insert(before.end(), later.begin(), later.end());
    return before;
}

} // namespace

SettingsRun::SettingsRun(const Handover& before, const Install& install, const ScreenParts& screen, std::ostream& out,
                         std::ostream& err)
    : m_drawing(before.drawing), m_before(before), m_screen(screen), m_out(out), m_err(err),
      m_console(err, screen.hasTerminal), m_run(m_drawing, install, screen, m_console),
      m_sheets({[this] { return m_run.Session().Outlines(); },
                [this] { return m_run.Document()->ActiveLayout()->Name(); },
                [this](const std::string& name) { m_run.Activate(name); }, [this](DataKeg& keg) { return Read(keg); }}),
      m_page(
          m_drawing, install, [this] { return Wish(); }, [this] { return m_run.Session().Drawing().Twin(); }),
      m_others(screen.memory, m_drawing, screen.marks != nullptr), m_next{
                                                                       m_drawing, {}, {}, {}, beside::NextStep::Close,
                                                                       false}
{
    if (!before.layout.empty())
        m_run.Activate(before.layout);
    m_sheets.Leave(before.off);
    m_sheets.SetPage(&m_page);
    m_sheets.SetDrawings(&m_others);
    RememberDrawing(screen.memory, m_drawing);
    m_records = RecordsFileOf(m_run.Session().Drawing(), m_drawing);
    m_run.OnceKept([this] { TakeChoices(); });
    if (screen.company != nullptr)
        m_run.Session().Watcher().WhenSheetBegins(
            [this](const std::string& sheet, std::int32_t index, std::int32_t count) {
                m_screen.company->ShowProgress({m_drawing, sheet, index, count});
            });
}

std::optional<int> SettingsRun::Run()
{
    if (m_before.isFirst)
        TellWhereEntriesGo(m_run.Session().Drawing(), m_drawing, m_screen.desktop);
    if (m_before.isFirst && !MayDropSignatureFields())
        return std::nullopt;
    Show();
    m_next.layout = m_run.Document()->ActiveLayout()->Name();
    const bool converted = m_run.Watcher().LastSave().has_value();
    if (!m_run.Watcher().SettingsKept() && !converted)
        return std::nullopt;
    if (converted)
        m_run.ConcludeConversion();
    HandOver();
    SaveDrawing();
    const int exitCode = WithLostSetting(converted ? TellConversion() : kExitDone);
    if (converted)
        AskWhatIsNext();
    return exitCode;
}

Handover SettingsRun::Next() const
{
    Handover other;
    if (m_others.WantsMarks()) {
        other.drawing = m_drawing;
        other.layout = m_next.layout;
        other.off = m_sheets.Off();
        other.editsMarks = true;
        return other;
    }
    if (m_others.Next().empty())
        return m_next;
    other.drawing = m_others.Next();
    return other;
}

/// The dialog, or the conversion with what it has stored.
void SettingsRun::Show()
{
    cPlugin plugin(m_run.Context());
    IPlugin& frontEnd = plugin;
    frontEnd.Initialize(m_run.Application());
    if (m_before.step == beside::NextStep::SaveAgain) {
        m_run.Session().ShowOnly(m_sheets.Only());
        frontEnd.ConvertToPDF(0);
    } else {
        const Beside beside(m_screen.company, m_sheets);
        frontEnd.ShowSettings(0, 0, 0);
    }
    m_console.ClearProgress();
    if (m_screen.company != nullptr)
        m_screen.company->HideProgress();
}

/// What the dialog holds, while it is up.
bool SettingsRun::Read(DataKeg& keg)
{
    const SettingsReader& read = m_run.Session().Around().Reader();
    return read && read(keg);
}

std::optional<PreviewWish> SettingsRun::Wish()
{
    PreviewWish wish;
    if (!Read(wish.keg))
        return std::nullopt;
    wish.layout = m_run.Document()->ActiveLayout()->Name();
    return wish;
}

/// Once the dialog was confirmed: fields that the showing before stored stay, and the sheets chosen alone are shown.
void SettingsRun::TakeChoices()
{
    if (!m_before.fields.empty()) {
        std::vector<SignatureFieldEntry> fields;
        ReadSignatureFields(m_run.Context(), *m_run.Document(), fields);
        WriteSignatureFields(m_run.Context(), *m_run.Document(), Joined(m_before.fields, fields));
    }
    m_run.Session().ShowOnly(m_sheets.Only());
}

/// Before the drawing is saved, which closes it.
void SettingsRun::HandOver()
{
    m_next.off = m_sheets.Off();
    m_next.layout = m_run.Document()->ActiveLayout()->Name();
    ReadSignatureFields(m_run.Context(), *m_run.Document(), m_next.fields);
    if (m_run.Report().Converted())
        TellUnplottedMarks(m_run.Context(), *m_run.Document(), false, m_run.Report());
}

void SettingsRun::AskWhatIsNext()
{
    if (m_screen.company == nullptr)
        return;
    const std::string cancelled = m_run.Watcher().WhatWasCancelled();
    beside::RunEnd end = EndOf(m_run.Report(), cancelled, m_run.Here());
    end.offersSave = !cancelled.empty();
    m_next.step = m_screen.company->ShowEnd(end);
}

/// The dialog begins with an empty list of signature fields, and what is confirmed takes the stored ones' place.
bool SettingsRun::MayDropSignatureFields()
{
    std::vector<SignatureFieldEntry> fields;
    ReadSignatureFields(m_run.Context(), *m_run.Document(), fields);
    if (fields.empty())
        return true;
    std::string names;
    for (const SignatureFieldEntry& field : fields)
        names += fmt::format("    {} ({})\r\n", field.FieldName, field.LayoutName);
    const std::string text =
        fmt::format("This drawing has {}:\r\n{}\r\n"
                    "The settings dialog begins with an empty list in their place, and OK or Create PDF\r\n"
                    "keeps what the list then holds. {}\r\n\r\n"
                    "\"sheetmaker sign\" changes signature fields one by one. Show the settings dialog?",
                    fields.size() == 1 ? "a signature field" : fmt::format("{} signature fields", fields.size()), names,
                    WhatStays(m_records));
    return m_screen.desktop.ShowMessage({text, kProductTitle, MessageButtons::OkCancel, MessageIcon::Exclamation,
                                         HelpFilePath(m_run.Context().surroundings), kHelpSignatureFields}) ==
           MessageAnswer::Ok;
}

void SettingsRun::SaveDrawing()
{
    const bool isNew = !fs::exists(base::ToPath(m_records));
    if (m_run.Save())
        m_out << fmt::format("{}: {} were kept{}\n", m_drawing,
                             m_run.Watcher().LostSetting().empty() ? "the settings" : "its own entries",
                             isNew ? " in " + m_records : "; the former file is " + m_records + ".bak");
}

int SettingsRun::TellConversion()
{
    const DrawingReport& report = m_run.Report();
    if (!m_run.Watcher().WhatWasCancelled().empty())
        return kExitDone;
    for (const std::string& line : RemarkLines(report))
        m_console.Line(m_drawing + ": " + line);
    if (report.Converted())
        m_out << ResultLine(report) << std::endl;
    else if (m_screen.company == nullptr)
        ShowUnlessRead(m_screen, m_drawing + ": " + report.failure);
    return report.exitCode;
}

/// The drawing may be saved, and the settings not.
int SettingsRun::WithLostSetting(int exitCode)
{
    const std::string& reason = m_run.Watcher().LostSetting();
    if (reason.empty())
        return exitCode;
    TellOnScreen("settings", m_screen, m_err, "the user's settings were not kept: " + reason);
    return exitCode == kExitDone ? kExitFailed : exitCode;
}

} // namespace sm::app
