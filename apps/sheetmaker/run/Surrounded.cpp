#include "run/Surrounded.h"

#include "base/files/Paths.h"
#include "plotting/JobOptions.h"
#include "plugin/Attempt.h"
#include "preferences/SettingNames.h"
#include "publisher/JobOptions.h"
#include "run/InstallFiles.h"
#include "settings/mdlDataKegIO.h"
#include "settings/mdlWinReg.h"
#include "system/DocumentOpener.h"
#include "system/SystemPorts.h"
#include "terminal/TerminalDesktop.h"
#include "terminal/TerminalWindows.h"
#include "ui/FormWindows.h"

namespace sm::app {
namespace {

std::unique_ptr<IDesktop> MakeDesktop(const DrawingTask& task, const Install& install, terminal::Console& console)
{
    terminal::DesktopOptions options;
    options.savePath = task.savePath;
    options.open = [environment = install.environment](const std::string& path) {
        return system::OpenOnDesktop(environment, path);
    };
    return terminal::CreateTerminalDesktop(console, std::move(options));
}

/// The paper of the page setup that the active layout is to be plotted with.
std::optional<terminal::Paper> WantedPaper(CallContext& context)
{
    if (!context.g_AcadDoc)
        return std::nullopt;
    IAcadDocument& document = *context.g_AcadDoc;
    const auto layout = CarryOn([&] { return document.ActiveLayout(); }).value_or(nullptr);
    PageSetupRecord record;
    const std::int32_t source = ReadPlotSelection(context, document);
    const bool custom = source == 1 && ReadCustomPageSetup(context, document, record) == CustomPageSetup::Read;
    if (source == 2)
        record = ReadGlobalPageSetup(context.surroundings);
    else if (!custom && (!layout || !ReadLayoutPageSetup(context, *layout, record)))
        return std::nullopt;
    const bool turned = record.PlotRotation == 1 || record.PlotRotation == 3;
    return turned ? terminal::Paper{record.PaperHeight, record.PaperWidth}
                  : terminal::Paper{record.PaperWidth, record.PaperHeight};
}

} // namespace

Surrounded::Surrounded(const DrawingTask& task, const Install& install, terminal::Console& console,
                       DrawingReport& report, const ScreenParts* screen)
    : m_report(report), m_screen(screen), m_watcher(report, console),
      m_stored(OpenSettings(install, [&console](const std::string& text) { console.Line("warning: " + text); })),
      m_registry(*m_stored),
      m_files(std::make_unique<InstallFiles>(system::CreateFileSystem(), base::ToText(install.places.shareFolder))),
      m_terminalDesktop(MakeDesktop(task, install, console)), m_desktop(screen ? screen->desktop : *m_terminalDesktop),
      m_windows(MakeWindows(console)),
      m_library(publisher::CreatePublisher(PublishingOptions(task, install), m_desktop)),
      m_locale(system::CreateLocale(install.environment)), m_clock(system::CreateClock()),
      m_component(
          system::CreateComponent(base::ToText(install.places.shareFolder), system::ParseVersion(install.version))),
      m_surroundings{m_registry, *m_files, m_desktop,    *m_windows, *m_library,
                     *m_locale,  *m_clock, *m_component, m_watcher},
      m_context{m_surroundings, nullptr, nullptr, nullptr}
{
    LayOptions(task);
}

std::unique_ptr<IWindows> Surrounded::MakeWindows(terminal::Console& console)
{
    if (m_screen)
        return CreateFormWindows(m_context, m_screen->toolkit);
    return terminal::CreateTerminalWindows(console, {[this] { return WantedPaper(m_context); },
                                                     [this](const std::string& reason) { m_watcher.Reason(reason); }});
}

void Surrounded::LaySetting(const std::string& name, const std::string& value)
{
    m_registry.Lay(RegistryRoot::CurrentUser, kSettingsKey, name, value);
}

void Surrounded::LayOptions(const DrawingTask& task)
{
    const ConvertOptions& options = task.options;
    for (const char* name : {"Profile", "PrinterConfigPath"})
        m_registry.Isolate(RegistryRoot::CurrentUser, kSettingsKey, name);
    if (!m_screen) // the answer nobody gave isn't stored
        m_registry.KeepWrites("NoShowAcad2000PlotterMsg");
    if (task.savePath || !options.asSet)
        LaySetting("PromptForFileName", task.savePath ? "1" : "0");
    if (options.open || !options.asSet)
        LaySetting("OpenInViewer", options.open ? "1" : "0");
    if (options.keepPs || !options.asSet)
        LaySetting("DeletePs", options.keepPs ? "0" : "1");
    if (options.lineQuality)
        LaySetting("Optimization", std::to_string(*options.lineQuality));
    if (options.jobOptions)
        LaySetting("JobOptionsFile", *options.jobOptions);
}

bool Surrounded::KeepsLayers(const ConvertOptions& options)
{
    const std::string name = ReadTextSetting(m_surroundings, "JobOptionsFile", "Graphics [600 dpi]");
    return options.pdfLayers || publisher::AsksForLayers(JobOptionsPath(m_surroundings, name));
}

publisher::PublisherOptions Surrounded::PublishingOptions(const DrawingTask& task, const Install& install)
{
    publisher::PublisherOptions options;
    options.logFolder = base::ToText(install.places.stateFolder);
    options.logFileName = task.logFileName;
    options.workFolder = task.workFolder;
    options.producer = "Sheetmaker PDF " + install.version;
    options.observer.note = [this](const std::string& line) { m_report.notes.push_back(line); };
    options.observer.saved = [this](const publisher::SaveReport& saved) {
        m_report.pages = saved.pages;
        m_report.pdfBytes = saved.pdfBytes;
        m_report.times.pages = std::chrono::duration<double, std::milli>(saved.makingPages).count();
        m_report.times.assemble = std::chrono::duration<double, std::milli>(saved.assembling).count();
    };
    return options;
}

} // namespace sm::app
