// SPDX-License-Identifier: GPL-3.0-or-later
// The marks that a drawing keeps, to be changed where they stand, while no form is up whose rows would overwrite them.
#pragma once

#include "beside/PageSource.h"

#include <cstddef>
#include <string>
#include <vector>

namespace sm::drawing {
class Drawing;
}

namespace sm::beside {

/// One thing that can be said of a mark.
struct MarkField {
    std::string label, value;
    friend bool operator==(const MarkField&, const MarkField&) = default;
};

/// Nothing here throws. A mark goes by its place in what `MarksOn` gives for its layout; results that are text say in
/// one sentence why nothing was changed, and are empty when it was.
class IMarkBoard {
public:
    virtual ~IMarkBoard() = default;
    /// Places in drawing units, sizes of stamps in millimetres of paper.
    [[nodiscard]] virtual std::vector<PageMark> MarksOn(const std::string& layout) = 0;
    /// By a vector in drawing units.
    virtual std::string Move(const std::string& layout, std::size_t mark, Vec2 by) = 0;
    [[nodiscard]] virtual std::vector<MarkField> Fields(const std::string& layout, std::size_t mark) = 0;
    /// One value for each field, in their order.
    virtual std::string Change(const std::string& layout, std::size_t mark, const std::vector<std::string>& values) = 0;
};

/// The window that shows them.
class IMarkWindow {
public:
    virtual ~IMarkWindow() = default;
    /// Shows the drawing's marks, those of the layout at that position first, and comes back when the user has closed
    /// the window. Throws when it can't be shown.
    virtual void EditMarks(const drawing::Drawing& drawing, std::size_t layout, IMarkBoard& board) = 0;
};

} // namespace sm::beside
