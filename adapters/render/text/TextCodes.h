// SPDX-License-Identifier: GPL-3.0-or-later
// The %%-codes of TEXT and ATTRIB (and MTEXT, which knows the characters among them).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

/// A stretch of a line with the same lines drawn at it.
struct CodedPiece {
    std::string text; ///< UTF-8 without codes
    bool under = false, over = false, strike = false;
};

/// Cuts a line at its codes; at least one piece, which may be empty. `pieces` is reused.
void DecodeLine(std::string_view line, std::vector<CodedPiece>& pieces);

/// A code that stands for a character, at `at` ("%%c", "%%065", "\U+0416"): appends the
/// character and moves on. False when there is none.
bool DecodeCharacter(std::string_view text, std::size_t& at, std::string& out);

} // namespace sm::render
