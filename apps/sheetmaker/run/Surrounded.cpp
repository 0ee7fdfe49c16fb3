// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/Surrounded.h"

#include "base/files/Paths.h"
#include "machine/InstallFiles.h"
#include "plotting/JobOptions.h"
#include "plugin/Attempt.h"
#include "publisher/JobOptions.h"
#include "run/StampTexts.h"
#include "run/WatchedWindows.h"
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
    const bool custom =
        source == kPageSetupCustom && ReadCustomPageSetup(context, document, record) == CustomPageSetup::Read;
    if (source == kPageSetupGlobal)
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
    : m_report(report), m_attachments(task.options.attachments == AttachmentChoice::RefuseOutside), m_screen(screen),
      m_watcher(report, console),
      m_stored(OpenSettings(install, [&console](const std::string& text) { console.Line("warning: " + text); })),
      m_registry(*m_stored),
      m_files(std::make_unique<InstallFiles>(system::CreateFileSystem(), base::ToText(install.places.shareFolder))),
      m_terminalDesktop(MakeDesktop(task, install, console)), m_desktop(screen ? screen->desktop : *m_terminalDesktop),
      m_windows(MakeWindows(install, console)),
      m_library(publisher::CreatePublisher(PublishingOptions(task, install), m_desktop)),
      m_locale(system::CreateLocale(install.environment)), m_clock(system::CreateClock(install.environment)),
      m_component(
          system::CreateComponent(base::ToText(install.places.shareFolder), system::ParseVersion(install.version))),
      m_surroundings{m_registry, *m_files, m_desktop,    *m_windows, *m_library,
                     *m_locale,  *m_clock, *m_component, m_watcher},
      m_context{m_surroundings, nullptr, nullptr, nullptr}
{
    LayOptions(task);
}

std::unique_ptr<IWindows> Surrounded::MakeWindows(const Install& install, terminal::Console& console)
{
    if (m_screen)
        return WatchWindows(
            CreateFormWindows(m_context, m_screen->toolkit, &m_reader, [install] { return PlotStyleNames(install); }),
            [this](const std::string& what) { m_watcher.Cancelled(what); });
    return terminal::CreateTerminalWindows(console, {[this] { return WantedPaper(m_context); },
                                                     [this](const std::string& reason) { m_watcher.Reason(reason); }});
}

void Surrounded::LaySetting(const Setting& setting, const std::string& value)
{
    m_registry.Lay(RegistryRoot::CurrentUser, kSettingsKey, setting.name, value);
}

void Surrounded::LayGlobalPageSetup(const PageSetupRecord& record)
{
    for (const Setting& setting : kSettings)
        if (setting.use == SettingUse::GlobalPageSetup)
            m_registry.KeepWrites(setting.name);
    WriteGlobalPageSetup(m_surroundings, record);
}

void Surrounded::LaySwitch(const Setting& setting, bool isOn)
{
    LaySetting(setting, isOn ? "1" : "0");
}

void Surrounded::LayOptions(const DrawingTask& task)
{
    const ConvertOptions& options = task.options;
    for (const char* name : {kSavedProfile, kSavedPlotterFolder})
        m_registry.Isolate(RegistryRoot::CurrentUser, kSettingsKey, name);
    for (const Setting& setting : kSettings)
        if (setting.use == SettingUse::Answer && !m_screen) // the answer nobody gave isn't stored
            m_registry.KeepWrites(setting.name);
    if (task.savePath || !options.asSet)
        LaySwitch(SettingNamed("PromptForFileName"), task.savePath.has_value());
    if (options.open || !options.asSet)
        LaySwitch(SettingNamed("OpenInViewer"), options.open);
    if (options.keepPs || !options.asSet)
        LaySwitch(SettingNamed("DeletePs"), !options.keepPs);
    if (options.lineQuality)
        LaySetting(SettingNamed("Optimization"), std::to_string(*options.lineQuality));
    if (options.jobOptions)
        LaySetting(SettingNamed("JobOptionsFile"), *options.jobOptions);
}

bool Surrounded::KeepsLayers(const ConvertOptions& options)
{
    const std::string name = ReadTextSetting(m_surroundings, SettingNamed("JobOptionsFile"));
    return options.pdfLayers || publisher::AsksForLayers(JobOptionsPath(m_surroundings, name));
}

namespace {

publisher::Archive ArchiveFor(PdfStandard standard)
{
    return standard == PdfStandard::A2b   ? publisher::Archive::A2b
           : standard == PdfStandard::A3b ? publisher::Archive::A3b
                                          : publisher::Archive::None;
}

} // namespace

publisher::PublisherOptions Surrounded::PublishingOptions(const DrawingTask& task, const Install& install)
{
    publisher::PublisherOptions options;
    options.logFolder = task.logFolder.empty() ? base::ToText(install.places.stateFolder) : task.logFolder;
    options.logFileName = task.logFileName;
    options.workFolder = task.workFolder;
    options.title = task.options.title.value_or("");
    options.form.reproducible = system::BuildDate(install.environment).has_value();
    options.form.language = LanguageOf(install.environment);
    options.form.linearized = task.options.optimize;
    options.form.archive = ArchiveFor(task.options.standard);
    if (task.options.encryption)
        options.form.encryption = {task.options.encryption->user, task.options.encryption->owner};
    options.producer = "Sheetmaker PDF " + install.version;
    options.navigation.contents = task.options.contents;
    options.navigation.heading = [this](std::size_t page) { return m_heading ? m_heading(page) : std::string(); };
    options.useOf = [this](const std::string& path) { return m_useOf ? m_useOf(path) : std::string(); };
    options.refuseAttachment = [this](const std::string& path, std::uint64_t bytes) {
        return m_attachments.ReasonAgainst(path, bytes,
                                           ReadIntegerSetting(m_surroundings, SettingNamed("AttachmentLimit")));
    };
    options.stampTexts = [this, share = base::ToText(install.places.shareFolder)] {
        return CreateStampTexts(share, m_report);
    };
    options.observer.note = [this](const std::string& line) { m_report.notes.push_back(line); };
    options.observer.saved = [this](const publisher::SaveReport& saved) {
        m_report.pages = saved.pages;
        m_report.pdfBytes = saved.pdfBytes;
        m_attachments.Tell(saved, m_report);
        m_report.marksLost.insert(m_report.marksLost.end(), saved.marksOff.begin(), saved.marksOff.end());
        m_report.times.pages = std::chrono::duration<double, std::milli>(saved.makingPages).count();
        m_report.times.assemble = std::chrono::duration<double, std::milli>(saved.assembling).count();
    };
    return options;
}

} // namespace sm::app
