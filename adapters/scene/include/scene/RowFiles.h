// SPDX-License-Identifier: GPL-3.0-or-later
// Files that were dropped on a form's list of files: one after the other becomes a row of it, in every toolkit.
#pragma once

#include "ports/IFormToolkit.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace sm::scene {

/// The position of a form's control; 0, the form itself, when none has that name.
std::size_t ControlNamed(const IForm& form, const std::string& name);

/// The files whose rows are still to come. The row's own form asks for its file, and the one from here is the answer.
class RowFiles {
public:
    void Begin(const std::vector<std::string>& paths);
    void Forget();
    /// From Begin until Next finds no more.
    [[nodiscard]] bool IsAdding() const { return m_isAdding; }

    /// The file of the next row, before which the list has `rows`. Nothing: all have theirs.
    std::optional<std::string> Next(std::size_t rows);
    /// The form of a row has gone. A row that was given up, so that the list has no more of them, ends the rest.
    void RowEnded(std::size_t rows);

private:
    std::deque<std::string> m_files;
    std::size_t m_rows = 0; ///< before the last of them
    bool m_isAdding = false;
};

} // namespace sm::scene
