// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the command line that edits a drawing's stamps, attachments and signature fields, and publishes sets.
#pragma once

#include "commandline/Jobs.h"

namespace CLI { // NOLINT(readability-identifier-naming): the library calls itself so
class App;
}

namespace sm::app {

struct MarkJobs {
    StampJob stamp;
    AttachJob attach;
    SignJob sign;
    PublishJob publish;
};

/// Adds "stamp", "attach", "sign" and "publish"; `jobs` outlives the parsing.
void AddMarkCommands(CLI::App& program, MarkJobs& jobs);

} // namespace sm::app
