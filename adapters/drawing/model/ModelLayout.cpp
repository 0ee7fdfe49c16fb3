// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/Drawing.h"

#include <algorithm>

namespace sm::drawing {

const Layout* ModelLayoutOf(const Drawing& drawing)
{
    const auto& layouts = drawing.Layouts();
    const auto found =
        std::find_if(layouts.begin(), layouts.end(), [](const Layout& layout) { return layout.isModel; });
    return found == layouts.end() ? nullptr : &*found;
}

} // namespace sm::drawing
