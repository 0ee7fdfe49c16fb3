// SPDX-License-Identifier: GPL-3.0-or-later
// What reading a drawing had to mend or leave out.
#pragma once

#include <cstdint>
#include <string>

namespace sm::drawing {

/// A kind of damage that was mended or skipped.
struct Finding {
    std::int32_t code = 0; ///< stable number of the kind
    std::string text;      ///< what was found and what was done, without counts
    std::uint32_t count = 0;
    std::uint32_t line = 0;   ///< of the first one
    bool contentLost = false; ///< true: something of the drawing could not be used
};

} // namespace sm::drawing
