// SPDX-License-Identifier: GPL-3.0-or-later
// The registry's roots and the product's own key, as tests name them.
#pragma once

#include "ports/IRegistry.h"

namespace sm {

inline constexpr auto kUser = RegistryRoot::CurrentUser;
inline constexpr auto kMachine = RegistryRoot::LocalMachine;
inline constexpr const char* kKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD";

} // namespace sm
