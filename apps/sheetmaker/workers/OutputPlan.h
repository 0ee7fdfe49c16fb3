// SPDX-License-Identifier: GPL-3.0-or-later
// Where each drawing's PDF goes, settled before anything starts.
#pragma once

#include "commandline/Jobs.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace sm::app {

struct PlannedDrawing {
    std::string drawing;                 ///< as given
    std::string pdfPath;                 ///< where the PDF will be
    std::optional<std::string> savePath; ///< what the save dialog is answered with; nothing: beside the drawing
};

struct OutputPlan {
    std::vector<PlannedDrawing> drawings;
    std::string error; ///< not empty: why nothing may be started
};

/// One drawing: `output` names the file, or a folder when it is one or ends in "/"; several: the folder, which is made
/// when the conversion starts. Refused: two drawings with one PDF, a PDF over a drawing, the same drawing twice.
OutputPlan PlanOutput(const std::vector<std::string>& drawings, const std::optional<std::string>& output);

} // namespace sm::app
