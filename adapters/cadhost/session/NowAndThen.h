// SPDX-License-Identifier: GPL-3.0-or-later
// A question that may be asked all the time and is costly to answer.
#pragma once

#include <functional>

namespace sm::cadhost {

/// Hands few of many questions on to `ask`, and none any more once the answer was no, which stays.
std::function<bool()> NowAndThen(std::function<bool()> ask);

} // namespace sm::cadhost
