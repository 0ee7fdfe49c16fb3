// SPDX-License-Identifier: GPL-3.0-or-later
// "layouts": what the tabs of a drawing hold and how they are plotted.
#pragma once

#include "cadhost/LayoutFacts.h"
#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

int RunLayouts(const LayoutsJob& job, const Install& install, std::ostream& out, std::ostream& err);

/// A table with a heading, columns as wide as their longest entry.
std::string LayoutTable(const std::vector<cadhost::LayoutFacts>& layouts);
/// The names, a line each.
std::string LayoutNames(const std::vector<cadhost::LayoutFacts>& layouts);

} // namespace sm::app
