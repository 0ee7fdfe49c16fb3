// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's file system, clock and locale, and the component itself.
#pragma once

#include "ports/IFileSystem.h"
#include "ports/ISystem.h"
#include "system/Environment.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace sm::system {

std::unique_ptr<IFileSystem> CreateFileSystem();

/// Seconds since 1970, UTC, at which "SOURCE_DATE_EPOCH" stops the clock, so that what is made can be made again byte
/// by byte; nothing when it isn't set or is no such number.
std::optional<std::int64_t> BuildDate(const Environment& environment);

/// Local time by the system's time zone ("TZ" included). A clock that is stopped also puts this process into UTC.
std::unique_ptr<IClock> CreateClock(const Environment& environment);

/// The locale that "LC_ALL", then "LC_NUMERIC", "LC_TIME" and "LC_CTYPE", then "LANG" name, in UTF-8; "C" where the
/// machine doesn't have it. The process's own locale stays as it is.
std::unique_ptr<ILocale> CreateLocale(const Environment& environment);

/// `shareFolder` stands for the folder from which the component was loaded: it holds the PC3 folder.
std::unique_ptr<IComponent> CreateComponent(const std::string& shareFolder, ComponentVersion version);

/// "1.2.3" as its parts; missing and unreadable ones are 0.
ComponentVersion ParseVersion(const std::string& text);

} // namespace sm::system
