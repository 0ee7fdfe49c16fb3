// SPDX-License-Identifier: GPL-3.0-or-later
// The files that plots are made with, besides drawings and what these name.
#pragma once

#include "machine/Install.h"

#include <string>

namespace sm::app {

/// Which font, plot style table, job options or plotter configuration `path` is, whatever links lead there: "the font
/// \"txt.shx\"". Those of the install, of the user, of the machine, and what lies beside the drawing in `folder`. Empty
/// when it is none, and when nothing is there.
std::string SupportFileAt(const std::string& path, const Install& install, const std::string& folder);

} // namespace sm::app
