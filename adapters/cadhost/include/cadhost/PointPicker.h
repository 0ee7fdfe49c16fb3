// SPDX-License-Identifier: GPL-3.0-or-later
// What the host asks when a point of the drawing must be picked: a window, as a rule.
#pragma once

#include "base/Geometry.h"

#include <cstddef>
#include <optional>
#include <string>

namespace sm::drawing {
class Drawing;
} // namespace sm::drawing

namespace sm::cadhost {

/// Points are in drawing units: world coordinates of the model, on paper the layout's own units from the lower-left
/// corner of its printable area. `layout` is the position, in the drawing's list of layouts, of the active one. Both
/// operations wait for the user; nothing comes back when the user cancelled, and what they throw fails the host call
/// with the same words.
class IPointPicker {
public:
    virtual ~IPointPicker() = default;
    /// Shows the layout and lets the user pick one point. The user may turn to another layout meanwhile: `layout` is
    /// the one that is shown last, which stays the active one whatever becomes of the pick.
    virtual std::optional<Vec2> PickPoint(const drawing::Drawing& drawing, std::size_t& layout,
                                          const std::string& prompt) = 0;
    /// Lets the user pick the corner opposite to `first`, which as a rule was picked just before in the same layout.
    virtual std::optional<Vec2> PickCorner(const drawing::Drawing& drawing, std::size_t layout, Vec2 first,
                                           const std::string& prompt) = 0;
    /// The drawing is about to be closed: nothing made of it may be used any longer.
    virtual void Forget(const drawing::Drawing& /*drawing*/) {}
};

} // namespace sm::cadhost
