// SPDX-License-Identifier: GPL-3.0-or-later
// The text stamp of a sheet and the macros in its text.
#pragma once

#include "annotations/MarkState.h"

namespace sm {

/// Replaces "&[Date]", "&[Time]", "&[mm]", "&[dd]", "&[yyyy]", "&[User]", "&[File]" and "&[Path]", in this order and at
/// every occurrence; what an earlier macro brings in, a later one may replace. Never throws: a failing step is left
/// out.
std::string ExpandStampText(Surroundings& surroundings, const std::string& text, const std::string& drawingFullName,
                            const std::string& loginName);

/// The stamp section. False after a host error, which it logs.
bool AddTextStamp(MarkState& state);

} // namespace sm
