// SPDX-License-Identifier: GPL-3.0-or-later
// What became of a conversion, from what was heard while it ran.
#pragma once

#include "report/SheetWatcher.h"

#include <string>

namespace sm::app {

/// What the publisher answers a save with, as far as the command line tells it apart; 0 and more: saved.
enum SaveStatus : std::int32_t { kInterpreterMissing = -7, kSavedButNoViewer = -12 };

/// Whether a PDF was made.
constexpr bool IsSaved(std::int32_t status)
{
    return status >= 0 || status == kSavedButNoViewer;
}
/// The exit code of a save that failed.
int ExitCodeOfFailedSave(std::int32_t status);

/// Fills exit code, failure and PDF path of `report`, which holds the damage already. `plotFailure` is the host's
/// reason for the last plot that failed.
void Conclude(const SheetWatcher& watcher, const std::string& plotFailure, DrawingReport& report);

} // namespace sm::app
