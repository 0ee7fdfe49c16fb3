// What the host asks when a point of the drawing must be picked: a window, as a rule.
#pragma once

#include "drawing/Drawing.h"

#include <cstddef>
#include <optional>
#include <string>

namespace sm::cadhost {

/// Points are in drawing units: world coordinates of the model, on paper the layout's own units from the lower-left
/// corner of its printable area. `layout` is a position in the drawing's list of layouts. Both operations wait for the
/// user; nothing comes back when the user cancelled, and what they throw fails the host call with the same words.
class IPointPicker {
public:
    virtual ~IPointPicker() = default;
    /// Shows the layout and lets the user pick one point.
    virtual std::optional<drawing::Vec2> PickPoint(const drawing::Drawing& drawing, std::size_t layout,
                                                   const std::string& prompt) = 0;
    /// The same for the corner opposite to `first`, which as a rule was picked just before.
    virtual std::optional<drawing::Vec2> PickCorner(const drawing::Drawing& drawing, std::size_t layout,
                                                    drawing::Vec2 first, const std::string& prompt) = 0;
    /// The drawing is about to be closed: nothing made of it may be used any longer.
    virtual void Forget(const drawing::Drawing& /*drawing*/) {}
};

} // namespace sm::cadhost
