// SPDX-License-Identifier: GPL-3.0-or-later
// A change to a file's bytes.
#pragma once

#include <cstdint>
#include <string>

namespace sm::drawing {

/// Bytes [at, at + removed) of the file give way to `bytes`.
struct Edit {
    std::uint64_t at = 0, removed = 0;
    std::string bytes;
};

} // namespace sm::drawing
