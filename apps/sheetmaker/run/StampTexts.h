// SPDX-License-Identifier: GPL-3.0-or-later
// Text stamps in any script: the plotter sets what the publisher's standard fonts can't show.
#pragma once

#include "publisher/StampTexts.h"
#include "report/RunReport.h"

#include <memory>
#include <string>

namespace sm::app {

/// What a document's stamps have no font for goes to the report's remarks, as a drawing's texts do. `report` must
/// outlive the result.
std::unique_ptr<publisher::IStampTexts> CreateStampTexts(const std::string& shareFolder, DrawingReport& report);

} // namespace sm::app
