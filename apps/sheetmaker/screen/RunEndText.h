// SPDX-License-Identifier: GPL-3.0-or-later
// What the window at the end of a run says.
#pragma once

#include "beside/RunEnd.h"
#include "machine/Install.h"
#include "report/RunReport.h"

#include <string>

namespace sm::app {

/// `cancelled` names what the user cancelled, as the end of a sentence; empty: nothing.
beside::RunEnd EndOf(const DrawingReport& report, const std::string& cancelled, const Install& install);

} // namespace sm::app
