// SPDX-License-Identifier: GPL-3.0-or-later
// How far a conversion has come.
#pragma once

#include <cstdint>
#include <string>

namespace sm::beside {

struct RunProgress {
    std::string drawing;               ///< as given
    std::string sheet;                 ///< that is being made
    std::int32_t index = 0, count = 0; ///< of the sheet, from 1; of all sheets
    friend bool operator==(const RunProgress&, const RunProgress&) = default;
};

} // namespace sm::beside
