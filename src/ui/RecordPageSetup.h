// A page setup record behind the page setup interface, so that another page setup can be copied from it.
#pragma once

#include "ports/IAcadPageSetup.h"
#include "settings/PageSetupRecord.h"

#include <memory>

namespace sm {

/// Read-only: the operations that would change it do nothing. `record` is copied.
std::unique_ptr<IAcadPageSetup> MakeRecordPageSetup(const PageSetupRecord& record);

/// The record of any page setup, read through its properties.
PageSetupRecord RecordOf(IAcadPageSetup& setup);

} // namespace sm
