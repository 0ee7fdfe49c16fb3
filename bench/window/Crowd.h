// SPDX-License-Identifier: GPL-3.0-or-later
// A large drawing made by code: a model and one sheet that shows all of it.
#pragma once

#include <cstddef>
#include <string>

namespace sm::bench {

/// DXF of R12 with `entities` of lines, arcs, circles, texts and areas in the model, the same for the same count; the
/// sheet (A3) has a frame and a viewport of the whole model.
std::string Crowd(std::size_t entities);

} // namespace sm::bench
