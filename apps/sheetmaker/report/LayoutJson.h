// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cadhost/LayoutFacts.h"

#include <string>
#include <vector>

namespace sm::app {

/// What the host tells of a drawing's layouts, as an array of JSON objects. Text that isn't UTF-8 is mended.
std::string LayoutJson(const std::vector<cadhost::LayoutFacts>& layouts);

} // namespace sm::app
