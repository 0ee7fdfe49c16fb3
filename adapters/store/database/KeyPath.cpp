// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/KeyPath.h"

namespace sm::store {
std::string FoldKeyPath(const std::string& path)
{
    std::string folded;
    for (const char character : base::FoldCase(path)) {
        if (character == '\\' && (folded.empty() || folded.back() == '\\'))
            continue;
        folded += character;
    }
    if (!folded.empty() && folded.back() == '\\')
        folded.pop_back();
    return folded;
}

} // namespace sm::store
