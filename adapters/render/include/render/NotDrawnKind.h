// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace sm::render {

/// How many entities of a kind and a layer were not drawn.
struct NotDrawnKind {
    std::string kind, layer;
    std::uint64_t count = 0;
};

} // namespace sm::render
