// SPDX-License-Identifier: GPL-3.0-or-later
// The 26 stored values of a page setup, in the order that the registry and the "Plots" record share.
#pragma once

#include "settings/PageSetupRecord.h"
#include "settings/RecordFields.h"

#include <array>

namespace sm {

using PageSetupField = RecordField<PageSetupRecord>;
using PageSetupFieldTable = std::array<PageSetupField, 26>;

/// The value names are those of the registry's settings.
const PageSetupFieldTable& PageSetupFields();

/// A scale part of 0 becomes 1.
void MendScale(PageSetupRecord& record);

} // namespace sm
