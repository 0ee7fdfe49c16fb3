// SPDX-License-Identifier: GPL-3.0-or-later
// Plotter configurations: readable text files of our own, or those of a CAD host, both described in docs/pc3.md.
#pragma once

#include "devices/Pc3File.h"

namespace sm::cadhost {

/// A host's file tells one sheet alone, the one that it was last set to. Both throw HostError with one line that names
/// the file, the line and what is wrong there.
Pc3File ReadPc3(const std::string& path);
/// `name` stands for the file in messages.
Pc3File ParsePc3(std::string_view text, const std::string& name);

} // namespace sm::cadhost
