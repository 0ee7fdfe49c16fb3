// SPDX-License-Identifier: GPL-3.0-or-later
// Plotter configurations as CAD hosts of releases 15 and 16 write them; docs/pc3.md tells what is taken from one.
#pragma once

#include "devices/Pc3File.h"

namespace sm::cadhost {

bool IsHostPc3(std::string_view bytes);

/// Throws HostError with one line that names the file by `name`, and what is wrong.
Pc3File ParseHostPc3(std::string_view bytes, const std::string& name);

} // namespace sm::cadhost
