// SPDX-License-Identifier: GPL-3.0-or-later
// What a reader or writer of drawings tells, as text.
#pragma once

#include "drawing/Drawing.h"
#include "tags/FindingList.h"

#include <functional>
#include <string>
#include <vector>

namespace sm::drawing {

/// "<code> x <count>" of each.
inline std::vector<std::string> Told(const FindingList& findings)
{
    std::vector<std::string> told;
    for (const Finding& finding : findings.All())
        told.push_back(std::to_string(finding.code) + " x " + std::to_string(finding.count));
    return told;
}

/// "no error" where the work succeeds.
inline std::string ErrorOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const DrawingError& error) {
        return error.what();
    }
    return "no error";
}

} // namespace sm::drawing
