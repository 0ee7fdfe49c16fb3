// SPDX-License-Identifier: GPL-3.0-or-later
// What happens when a file is cut while it is mapped.
#pragma once

#include <cstddef>
#include <string>

namespace sm::base {

/// Reading behind the new end of a file ends the process, unless the range is guarded: then it reads zeros from there
/// on, and `CutFile` names the file. Up to 256 ranges at a time are guarded.
void Guard(const void* begin, std::size_t size, const std::string& path);
void Unguard(const void* begin);

/// The first guarded file that was cut while it was read; empty when none was.
std::string CutFile();

} // namespace sm::base
