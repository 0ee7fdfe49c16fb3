// SPDX-License-Identifier: GPL-3.0-or-later
// Inputs of the target "dwg": the readers of DWG files and all that stands on them in the room of drawings.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace sm::drawing::dwg::testing {

/// The first byte of an input chooses what it is.
enum class Mode : std::uint8_t {
    Pages2004, ///< two bytes: size of the target; the rest is compressed as in R2004
    Pages2007, ///< the same as in R2007
    Built,     ///< one byte: release; the rest is parts of a file (see BuiltFile.h)
    Count
};
/// An input that begins so is a whole file.
constexpr char kWholeFile = 'A';

/// What the tests' writers make: names and inputs.
std::vector<std::pair<std::string, std::string>> OwnInputs();

} // namespace sm::drawing::dwg::testing
