// SPDX-License-Identifier: GPL-3.0-or-later
// How fast the page beside the settings dialog follows what is changed in it.
#pragma once

#include <cstddef>
#include <vector>

namespace sm::bench {

/// Milliseconds of the clock for each picture of the sheet of a drawing with so many entities: the first one, then one
/// after each of a few changes of the page setup. Throws where one can't be drawn.
std::vector<double> PreviewTimes(std::size_t entities);

} // namespace sm::bench
