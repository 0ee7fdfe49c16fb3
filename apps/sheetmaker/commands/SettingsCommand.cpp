#include "commands/SettingsCommand.h"

#include "base/files/Paths.h"
#include "commandline/ExitCodes.h"
#include "plugin/cPlugin.h"
#include "plugin/mdlAcadHelper.h"
#include "run/ScreenRun.h"
#include "settings/mdlDataKegIO.h"
#include "settings/mdlWinReg.h"

#include <fmt/format.h>
#include <fstream>
#include <ostream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kHelpSignatureFields = 440;

/// The file that a save writes: a DWG is never written, its records stand beside it.
std::string RecordsFileOf(const std::string& drawing)
{
    char beginning[4] = {};
    std::ifstream(base::ToPath(drawing), std::ios::binary).read(beginning, sizeof beginning);
    return std::string_view(beginning, sizeof beginning) == "AC10" ? drawing + ".sheetmaker" : drawing;
}

/// What is left of the signature fields that the dialog leaves out.
std::string WhatStays(const std::string& drawing)
{
    const std::string records = RecordsFileOf(drawing);
    if (fs::exists(base::ToPath(records)))
        return "The drawing as it is now stays as\r\n" + records + ".bak";
    return "The DWG itself stays as it is; what is kept for it goes into\r\n" + records;
}

class SettingsRun {
public:
    SettingsRun(const std::string& drawing, const SettingsJob& job, const Install& install, const ScreenParts& screen,
                std::ostream& out, std::ostream& err)
        : m_drawing(drawing), m_screen(screen), m_out(out), m_err(err), m_console(err, screen.hasTerminal),
          m_run(drawing, install, screen, m_console)
    {
        if (job.layout)
            m_run.Activate(*job.layout);
    }

    int Run()
    {
        if (!MayDropSignatureFields())
            return kExitDone;
        cPlugin plugin(m_run.Context());
        IPlugin& frontEnd = plugin;
        frontEnd.Initialize(m_run.Application());
        frontEnd.ShowSettings(0, 0, 0);
        m_console.ClearProgress();
        if (!m_run.Watcher().SettingsKept())
            return kExitDone;
        const bool converted = m_run.Watcher().LastSave().has_value();
        if (converted)
            m_run.ConcludeConversion();
        SaveDrawing();
        return WithLostSetting(converted ? TellConversion() : kExitDone);
    }

private:
    bool MayDropSignatureFields();
    void SaveDrawing();
    int TellConversion();
    int WithLostSetting(int exitCode);

    std::string m_drawing;
    const ScreenParts& m_screen;
    std::ostream& m_out;
    std::ostream& m_err;
    terminal::Console m_console;
    ScreenRun m_run;
};

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
                    WhatStays(m_drawing));
    return m_screen.desktop.ShowMessage({text, kProductTitle, MessageButtons::OkCancel, MessageIcon::Exclamation,
                                         HelpFilePath(m_run.Context().surroundings), kHelpSignatureFields}) ==
           MessageAnswer::Ok;
}

void SettingsRun::SaveDrawing()
{
    const std::string records = RecordsFileOf(m_drawing);
    const bool isNew = !fs::exists(base::ToPath(records));
    if (m_run.Save())
        m_out << fmt::format("{}: {} were kept{}\n", m_drawing,
                             m_run.Watcher().LostSetting().empty() ? "the settings" : "its own entries",
                             isNew ? " in " + records : "; the former file is " + records + ".bak");
}

int SettingsRun::TellConversion()
{
    const DrawingReport& report = m_run.Report();
    const auto& save = m_run.Watcher().LastSave();
    if (save && save->pdfPath.empty() && save->errorText == "Cancelled.")
        return kExitDone;
    for (const std::string& line : RemarkLines(report))
        m_console.Line(m_drawing + ": " + line);
    if (report.Converted())
        m_out << ResultLine(report) << std::endl;
    else
        ShowWithoutTerminal(m_screen, m_drawing + ": " + report.failure);
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

} // namespace

int RunSettings(const SettingsJob& job, const Install& install, const ScreenParts& screen, std::ostream& out,
                std::ostream& err)
{
    return RunOnScreen("settings", screen, err, [&] {
        const auto drawing = job.drawing
                                 ? job.drawing
                                 : screen.desktop.AskOpenFile({"Open Drawing", {}, "Drawings", "dxf;dwg", true, 0});
        return drawing ? SettingsRun(*drawing, job, install, screen, out, err).Run() : kExitDone;
    });
}

} // namespace sm::app
