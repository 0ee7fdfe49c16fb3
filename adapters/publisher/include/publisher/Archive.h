// SPDX-License-Identifier: GPL-3.0-or-later
// Standards for keeping a PDF for a long time.
#pragma once

#include <cstdint>

namespace sm::publisher {

/// PDF/A as ISO 19005-2 and 19005-3 have it, at level B: the page looks the same for ever. 3 may hold any file.
enum class Archive : std::uint8_t { None, A2b, A3b };

} // namespace sm::publisher
