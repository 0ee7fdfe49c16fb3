// SPDX-License-Identifier: GPL-3.0-or-later
// Extended-data records between the automation model and the drawing file.
#pragma once

#include "drawing/Drawing.h"
#include "ports/Variant.h"

namespace sm::cadhost {

/// Reals (1010 to 1059) come back as numbers, integers (1060 to 1071) as integers, everything else as text.
AcadXData ToAutomation(const std::vector<drawing::XDataItem>& items);

/// Numbers and Booleans become their text. Throws HostError for arrays of different length and for a record whose
/// first item isn't the application's name.
std::vector<drawing::XDataItem> FromAutomation(const AcadXData& data);

} // namespace sm::cadhost
