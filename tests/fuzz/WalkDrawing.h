// SPDX-License-Identifier: GPL-3.0-or-later
// Asks a drawing for everything that it decodes only when it is asked.
#pragma once

#include "drawing/Drawing.h"

namespace sm::drawing::testing {

/// Reads layouts, tables and every entity by all readers that its kind has; a number that depends on what they gave.
std::uint64_t Walk(const Drawing& drawing);

} // namespace sm::drawing::testing
