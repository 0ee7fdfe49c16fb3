// SPDX-License-Identifier: GPL-3.0-or-later
// The header's fields but for those of dimensions. For this room only.
#pragma once

#include "dwg/objects/Rows.h"

namespace sm::drawing::dwg {

std::span<const Row> LeadingHeaderRows();
std::span<const Row> TrailingHeaderRows();

} // namespace sm::drawing::dwg
