// SPDX-License-Identifier: GPL-3.0-or-later
// Every double wired into one set of surroundings, with a machine on which a conversion succeeds: release chain, help
// file, settings folder, PC3 folder, a driver, and a drawing with a model tab and two sheets.
#pragma once

#include "doubles/FixedSystem.h"
#include "doubles/MemoryFileSystem.h"
#include "doubles/MemoryRegistry.h"
#include "doubles/RecordingLibrary.h"
#include "doubles/RegistryWrappers.h"
#include "doubles/ScriptedDesktop.h"
#include "doubles/ScriptedHost.h"
#include "plugin/CallContext.h"

#include <gtest/gtest.h>

namespace sm {

inline constexpr const char* kHelpFile = "C:\\Program Files\\Tarnwick\\acadsmpdf.hlp";
inline constexpr const char* kPc3Folder = "C:\\Program Files\\Tarnwick\\PC3";
inline constexpr const char* kUsersPlotters = "C:\\Users\\me\\Plotters";
inline constexpr const char* kUserKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD";
inline constexpr const char* kReleaseUserKey =
    "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD\\R16.0\\ACAD-201:409";

/// The doubles without a test round them, for tests that need several in turn.
struct HouseParts {
    HouseParts();

    MemoryRegistry registry;
    FailingRegistry failingRegistry{registry};
    MemoryFileSystem files;
    FailingFileSystem failingFiles{files};
    ScriptedDesktop desktop;
    ScriptedWindows windows;
    RecordingLibrary library;
    FixedLocale locale;
    FixedClock clock;
    FixedComponent component;
    RecordingObserver observer;
    ScriptedHost host;
    Surroundings surroundings{failingRegistry, failingFiles, desktop,   windows, library,
                              locale,          clock,        component, observer};
    CallContext context{surroundings, nullptr, nullptr, nullptr};

    std::shared_ptr<DocumentFacts> drawing;            ///< "C:\Jobs\Plan.dwg", the active document
    std::shared_ptr<LayoutFacts> model, ground, upper; ///< tabs 0, 1 ("Ground", active) and 2 ("Upper")

    /// Fills the context as a working call does, with an open log.
    void BeginCall();
    /// A text value of the user's settings; "(absent)" when there is none.
    [[nodiscard]] std::string Setting(const std::string& name) const;
    void PutSetting(const std::string& name, const std::string& text);
    /// The folder that waits for a reset; empty when none does.
    [[nodiscard]] std::string PendingFolder() const;
    /// Gives the layout so many marks: links of entities, the switch for them put on.
    void PutMarks(const std::shared_ptr<LayoutFacts>& layout, int count);
    /// Leaves only the driver file given in the drivers folder; empty for none.
    void UseDriver(const std::string& fileName);

private:
    void SeedRegistry();
    void SeedFiles();
    void SeedSession();
    void SeedDrawing();
};

/// Fails the test when log lines or messages were produced that it never looked at.
class TestHouse : public testing::Test, public HouseParts {
protected:
    using Lines = std::vector<std::string>;
    void TearDown() override;
    Lines Log() { return library.TakeLog(); }
    /// The lines of a log without details and without the headings of the annotation pass.
    static Lines MilestonesOf(const Lines& log);
    std::vector<Message> Messages() { return desktop.TakeMessages(); }
    /// As the product shows it: its title and help file filled in.
    static Message ProductMessage(const std::string& text, MessageButtons buttons, MessageIcon icon,
                                  std::int32_t helpContext);
};

void PrintTo(const Message& message, std::ostream* out);

} // namespace sm
