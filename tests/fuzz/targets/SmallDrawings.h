// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings of a few entities each, as DXF text: every kind of entity and what it refers to.
#pragma once

#include <string>
#include <vector>

namespace sm::fuzz {

std::vector<std::string> SmallDrawings();

/// What `Drawing::FromBytes` gets from pieces of sections; all may be empty.
struct DrawingPieces {
    std::string entities, blocks, objects, tables;
};
/// `version`: of $ACADVER. Layers "0" and "A", style "Standard", line type "GAS", a model and a paper layout "Plan".
std::string DrawingOf(const DrawingPieces& pieces, const std::string& version = "AC1021");

} // namespace sm::fuzz
