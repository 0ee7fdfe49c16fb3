// SPDX-License-Identifier: GPL-3.0-or-later
// What a run may write to, settled before anything is drawn.
#pragma once

#include <string>
#include <vector>

namespace sm::app {

/// Why no PDF can be written there; empty when it can.
std::string TargetTrouble(const std::string& pdfPath);

/// Throws Refusal when a log at `log`, whose links are followed, would replace one of the run's files, made or not, or
/// what is no plain file. A folder is left to others to tell.
void RefuseLogTarget(const std::string& log, const std::vector<std::string>& files);

} // namespace sm::app
