// SPDX-License-Identifier: GPL-3.0-or-later
// The fonts of this machine by what they are, not by their files' names.
#pragma once

#include <optional>
#include <string>

namespace sm::render {

struct FontPlace {
    std::string path;
    int index = 0; ///< within a collection
};

/// Reads what is needed for the questions below, once for this process and those that it forks.
void PrepareMachineFonts();

/// The machine's best font for a family ("sans-serif" for any plain one).
std::optional<FontPlace> MachineFontOfFamily(const std::string& family, bool bold, bool italic);

/// A font that has the character.
std::optional<FontPlace> MachineFontWith(char32_t character);

} // namespace sm::render
