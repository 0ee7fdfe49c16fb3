// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/KeyPath.h"

namespace sm::store {
std::string FoldKeyPath(const std::string& path)
{
    // A run asks for hundreds of values: in place, without another text.
    std::string folded = base::FoldCase(path);
    std::size_t kept = 0;
    for (const char character : folded)
        if (character != '\\' || (kept != 0 && folded[kept - 1] != '\\'))
            folded[kept++] = character;
    if (kept != 0 && folded[kept - 1] == '\\')
        --kept;
    folded.resize(kept);
    return folded;
}

} // namespace sm::store
