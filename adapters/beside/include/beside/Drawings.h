// SPDX-License-Identifier: GPL-3.0-or-later
// The ways from a form to what can't stand beside it: another drawing, the drawing's own marks.
#pragma once

#include <string>
#include <vector>

namespace sm::beside {

/// Nothing here throws.
class IDrawings {
public:
    virtual ~IDrawings() = default;
    /// Absolute paths of drawings that were opened lately and are still there, the latest first.
    [[nodiscard]] virtual std::vector<std::string> Recent() = 0;
    /// Once the form is closed, which the caller sees to, the run goes on with that drawing.
    virtual void OpenNext(const std::string& path) = 0;
    /// The drawing's marks can be edited in its window, between two showings of the form.
    [[nodiscard]] virtual bool CanEditMarks() const { return false; }
    /// Once the form is closed, they are.
    virtual void EditMarksNext() {}
};

/// Where files may be dropped on a form: each is one that the form asks for when a row is added.
struct FileList {
    std::string list{};   ///< the list view's name; empty: the form takes no files
    std::string form{};   ///< of a row, shown by the button "Add" beside the list
    std::string browse{}; ///< the button in it that asks for a file
};

} // namespace sm::beside
