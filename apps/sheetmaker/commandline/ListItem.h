// SPDX-License-Identifier: GPL-3.0-or-later
// Which entry of a drawing's list a command means.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace sm::app {

/// Throws Refusal when the command names no item; `what` is the word of the help for it.
void RequireItem(const std::string& item, const std::string& what);

/// Position of the one entry that has one of the wanted names among its names, or whose number from 1 on the first
/// wanted name is. Throws Refusal when there is none or several; `drawing` and `what` ("signature field") are named.
std::size_t FindItem(const std::vector<std::string>& wanted, const std::vector<std::vector<std::string>>& names,
                     const std::string& drawing, const std::string& what);

} // namespace sm::app
