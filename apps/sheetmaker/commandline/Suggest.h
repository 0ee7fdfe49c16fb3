// SPDX-License-Identifier: GPL-3.0-or-later
// "Did you mean" for names that aren't there.
#pragma once

#include <string>
#include <vector>

namespace sm::app {

/// The name that `wanted` is, letter case aside; else empty. The exact spelling wins.
std::string FindName(const std::string& wanted, const std::vector<std::string>& names);

/// The nearest of `names`, letter case aside: one that begins with `wanted`, or one that a few letters make of it;
/// empty when none is near.
std::string NearestName(const std::string& wanted, const std::vector<std::string>& names);

/// "; did you mean \"Sheet 1\"?" or nothing.
std::string Suggestion(const std::string& wanted, const std::vector<std::string>& names);

/// Names in quotes, separated by commas: "\"A\", \"B\"".
std::string QuotedList(const std::vector<std::string>& names);

} // namespace sm::app
