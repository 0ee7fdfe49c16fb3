// SPDX-License-Identifier: GPL-3.0-or-later
// The paper sizes that the suite's PC3 files offer.
#pragma once

#include "plugin/CallContext.h"
#include "settings/DataKeg.h"

#include <vector>

namespace sm {

/// Fills `table` with the 28 rows and returns their number.
std::int32_t LoadPaperTable(std::vector<PaperSize>& table);

/// Brings the record's medium into line with the table. The record always ends unrotated and with the names and size
/// of a row (a fit by name keeps the record's size). False when nothing fitted: the record then holds row 0.
bool MatchMedia(PageSetupRecord& record, const std::vector<PaperSize>& table);

/// Beeps and lets the user pick a row; true writes the row's two names into the record. Never throws.
bool PickPageSize(CallContext& context, PageSetupRecord& record, const std::vector<PaperSize>& table);

} // namespace sm
