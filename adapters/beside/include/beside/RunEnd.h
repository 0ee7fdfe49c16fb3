// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is told after "Create PDF".
#pragma once

#include <string>
#include <vector>

namespace sm::beside {

enum class EndKind { Made, MadeWithLoss, Cancelled, Failed };

struct RunEnd {
    EndKind kind = EndKind::Made;
    std::string headline;             ///< one sentence
    std::vector<std::string> lines{}; ///< what was not done or was done otherwise, one each
    std::string pdfPath{};            ///< absolute; empty: none was made
    std::string folder{};             ///< absolute, where the PDF lies; empty: none
    std::string logPath{};            ///< absolute; empty: there is none
    bool offersSave = false;          ///< the save box may be shown again
    friend bool operator==(const RunEnd&, const RunEnd&) = default;
};

/// What the user wants after that.
enum class NextStep { Close, SaveAgain, SettingsAgain };

} // namespace sm::beside
