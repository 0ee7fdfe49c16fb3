// SPDX-License-Identifier: GPL-3.0-or-later
// The product's keys below both roots of the registry.
#pragma once

namespace sm {

inline constexpr const char* kMakerKey = "Software\\Tarnwick Software";
/// Machine-wide: "Version".
inline constexpr const char* kProductKey = "Software\\Tarnwick Software\\Sheetmaker PDF";
/// Per user: the settings. Machine-wide: "HelpFile", "SettingsFolder". Below it, per user: what is kept for each
/// release of the host.
inline constexpr const char* kSettingsKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD";

} // namespace sm
