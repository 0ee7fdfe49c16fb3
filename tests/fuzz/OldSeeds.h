// SPDX-License-Identifier: GPL-3.0-or-later
// Files of R9 to R12 that a fuzzer begins with.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace sm::drawing::dwg::testing {

/// Names, and files that the tests' writer makes: each kind of entity in each form of its head, polylines with their
/// vertices, blocks with attributes, jumps between sections, extended data, header variables.
std::vector<std::pair<std::string, std::string>> OldSeeds();

} // namespace sm::drawing::dwg::testing
