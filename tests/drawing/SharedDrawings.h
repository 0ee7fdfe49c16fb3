// SPDX-License-Identifier: GPL-3.0-or-later
// Where drawings lie that nobody here wrote.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace sm::drawing {

inline std::filesystem::path SharedDrawings()
{
    const char* const named = std::getenv("SM_SHARED_DRAWINGS");
    return named != nullptr ? std::filesystem::path(named)
                            : std::filesystem::path(SM_SOURCE_DIR) / ".." / "shared" / "drawings";
}

} // namespace sm::drawing
