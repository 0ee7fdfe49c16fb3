// "get", "set" and "list".
#pragma once

#include "ports/IRegistry.h"
#include "sheetmaker/Jobs.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

/// The per-user key that holds the settings.
inline constexpr const char* kSettingsKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD";

/// Results go to `out`, one line for each fault to `err`. Each returns the exit code.
int RunGet(IRegistry& registry, const GetJob& job, std::ostream& out, std::ostream& err);
/// `jobOptionNames` are those installed.
int RunSet(IRegistry& registry, const SetJob& job, const std::vector<std::string>& jobOptionNames, std::ostream& err);
int RunList(IRegistry& registry, const ListJob& job, std::ostream& out, std::ostream& err);

} // namespace sm::app
