// SPDX-License-Identifier: GPL-3.0-or-later
// What the command line includes besides: few of its sources read JSON, but a batch of them has one as a rule.
#include "CommonHeaders.h"

#include <nlohmann/json.hpp>
