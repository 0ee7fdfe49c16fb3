// SPDX-License-Identifier: GPL-3.0-or-later
// Local date and time, as clock, locale and document summary pass it.
#pragma once

#include <chrono>

namespace sm {

/// Of the machine's time zone; seconds resolution.
using LocalDateTime = std::chrono::local_seconds;

} // namespace sm
