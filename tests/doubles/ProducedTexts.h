// SPDX-License-Identifier: GPL-3.0-or-later
// Every log line and message that the doubles of this program have been handed, whoever looked at it.
#pragma once

#include <set>
#include <string>

namespace sm {

/// Process-wide; the check that every laid-down text occurs in the suite reads it when all tests have run.
inline std::set<std::string>& ProducedTexts()
{
    static std::set<std::string> texts;
    return texts;
}

} // namespace sm
