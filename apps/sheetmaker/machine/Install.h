// SPDX-License-Identifier: GPL-3.0-or-later
// What one process knows of its machine: places, environment, version.
#pragma once

#include "base/files/Paths.h"
#include "ports/IRegistry.h"
#include "ports/ISystem.h"
#include "store/ValueTable.h"
#include "system/Environment.h"
#include "system/Places.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sm::app {

struct Install {
    system::Environment environment;
    system::Places places;
    std::string version;                    ///< "1.2.3"
    std::string dwgConverter{};             ///< of this run; empty: the stored setting
    std::filesystem::path windowsProgram{}; ///< the program with the windows; need not be there

    [[nodiscard]] std::string JobOptionsFolder() const { return base::ToText(places.shareFolder / "Settings"); }
    /// The user's own plot style tables.
    [[nodiscard]] std::string PlotStyleFolder() const { return base::ToText(places.settingsFolder / "PlotStyles"); }
    [[nodiscard]] std::string LoginName() const;
};

/// Name of the conversion log in the state folder.
inline constexpr const char* kLogFileName = "SmPdfAcad.log";

/// This process's own.
Install ThisInstall();

/// The program that shows the windows, whose own command line's program lies at `executable`; it need not be there.
std::filesystem::path WindowsProgram(const std::filesystem::path& executable);

/// What an installer would have written of this install.
store::ValueTable FactsOf(const Install& install);

/// Whether the user's settings can be read, or there are none. `complain` hears as a sentence why not, and what was
/// done about a file that is damaged.
bool CanReadSettings(const Install& install, const std::function<void(const std::string&)>& complain);

/// The user's settings, as they are at the first question, over the facts of the install. `complain` hears each trouble
/// with the file once.
std::unique_ptr<IRegistry> OpenSettings(const Install& install,
                                        const std::function<void(const std::string&)>& complain);

/// The language of messages and, most likely, of drawings, as RFC 5646 has it: "de-DE" where LC_ALL, LC_MESSAGES or
/// LANG is "de_DE.UTF-8"; empty where none tells one.
std::string LanguageOf(const system::Environment& environment);

/// Plot style tables of the install and of the user, by name, each once: those of every drawing.
std::vector<std::string> PlotStyleNames(const Install& install);

/// Names of the installed job options, sorted.
std::vector<std::string> JobOptionNames(const Install& install);

} // namespace sm::app
