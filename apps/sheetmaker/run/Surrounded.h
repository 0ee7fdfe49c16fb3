// SPDX-License-Identifier: GPL-3.0-or-later
// Everything the plug-in finds around it in one run of the command line.
#pragma once

#include "machine/Install.h"
#include "plugin/CallContext.h"
#include "ports/IFileSystem.h"
#include "ports/IPubDoc.h"
#include "ports/IWindows.h"
#include "publisher/Publisher.h"
#include "report/SheetWatcher.h"
#include "run/AttachmentRules.h"
#include "run/DrawingTask.h"
#include "run/ScreenParts.h"
#include "settings/PageSetupRecord.h"
#include "settings/SettingTable.h"
#include "store/OverlayRegistry.h"
#include "terminal/Console.h"
#include "ui/FormWindows.h"

#include <functional>
#include <memory>

namespace sm::app {

class Surrounded {
public:
    /// All references outlive this object. With a `screen`, windows and message boxes are shown there and the user
    /// answers; without one they become lines on the console.
    Surrounded(const DrawingTask& task, const Install& install, terminal::Console& console, DrawingReport& report,
               const ScreenParts* screen = nullptr);
    Surrounded(const Surrounded&) = delete;
    Surrounded& operator=(const Surrounded&) = delete;

    [[nodiscard]] CallContext& Context() { return m_context; }
    [[nodiscard]] SheetWatcher& Watcher() { return m_watcher; }
    [[nodiscard]] const SheetWatcher& Watcher() const { return m_watcher; }
    [[nodiscard]] AttachmentRules& Attachments() { return m_attachments; }
    /// The PDF is to have the drawing's layers: asked for by option or by the job options in force.
    [[nodiscard]] bool KeepsLayers(const ConvertOptions& options);
    /// Who tells, from now on, what a file is to the run when a PDF must not replace it; empty text: nothing.
    void AskForUses(std::function<std::string(const std::string& path)> useOf) { m_useOf = std::move(useOf); }
    /// Who names the heading, from now on, under which a page of the PDF, from 1, stands in the outline.
    void HeadPages(std::function<std::string(std::size_t page)> heading) { m_heading = std::move(heading); }
    /// Lays an option over a stored setting for this run.
    void LaySetting(const Setting& setting, const std::string& value);
    /// Reads what the settings dialog holds, while it is up on the screen; empty else.
    [[nodiscard]] const SettingsReader& Reader() const { return m_reader; }
    /// For this run the global page setup is that one.
    void LayGlobalPageSetup(const PageSetupRecord& record);

private:
    void LaySwitch(const Setting& setting, bool isOn);
    void LayOptions(const DrawingTask& task);
    [[nodiscard]] std::unique_ptr<IWindows> MakeWindows(const Install& install, terminal::Console& console);
    [[nodiscard]] publisher::PublisherOptions PublishingOptions(const DrawingTask& task, const Install& install);

    DrawingReport& m_report;
    std::function<std::string(const std::string& path)> m_useOf;
    std::function<std::string(std::size_t page)> m_heading;
    AttachmentRules m_attachments;
    const ScreenParts* m_screen; ///< null: there is none
    SettingsReader m_reader;
    SheetWatcher m_watcher;
    std::unique_ptr<IRegistry> m_stored;
    store::OverlayRegistry m_registry;
    std::unique_ptr<IFileSystem> m_files;
    std::unique_ptr<IDesktop> m_terminalDesktop;
    IDesktop& m_desktop;
    std::unique_ptr<IWindows> m_windows;
    std::unique_ptr<IPublishingLibrary> m_library;
    std::unique_ptr<ILocale> m_locale;
    std::unique_ptr<IClock> m_clock;
    std::unique_ptr<IComponent> m_component;
    Surroundings m_surroundings;
    CallContext m_context;
};

} // namespace sm::app
