// SPDX-License-Identifier: GPL-3.0-or-later
// Judges a finished run of the PostScript interpreter: its exit code, its report lines, and the room on the disk.
#pragma once

#include "base/process/ChildProcess.h"
#include "pages/GhostscriptDriver.h"

#include <string>
#include <vector>

namespace sm::publisher {

[[noreturn]] void FailMissingInterpreter(const std::string& program);

/// Returns when every page was made exactly once; else throws PublishFailure that names the first page at fault.
/// `folder` is where the interpreter wrote, `outputPath` its PDF.
void CheckRun(const base::ChildResult& result, const DriverReport& report, const std::vector<PageSource>& pages,
              const std::string& folder, const std::string& outputPath);

/// The line of the file's byte `position`, from 1; 0 when the file can't be read so far.
std::size_t LineOfPosition(const std::string& path, long long position);

} // namespace sm::publisher
