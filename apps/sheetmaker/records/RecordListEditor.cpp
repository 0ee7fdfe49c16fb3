// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/RecordListEditor.h"

#include "commandline/ExitCodes.h"
#include "commandline/Refusal.h"

namespace sm::app {

void RefuseIdleOptions(RecordAction action, bool anyOption, const std::string& item)
{
    const bool edits = action == RecordAction::Add || action == RecordAction::Change;
    if (anyOption && !edits)
        throw Refusal{kExitUsage, "list and remove take no options"};
    if (action == RecordAction::List && !item.empty())
        throw Refusal{kExitUsage, "list shows all; it takes no name"};
    if (!anyOption && action == RecordAction::Change)
        throw Refusal{kExitUsage, "change takes at least one of the options"};
}

} // namespace sm::app
