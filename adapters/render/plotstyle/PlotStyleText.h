// SPDX-License-Identifier: GPL-3.0-or-later
// The text inside plot style tables. For this folder only.
#pragma once

#include "render/PlotFileText.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace sm::render {

/// The groups of a table, and whether the file's head, where it has one, says that it goes by colour.
struct PlotStyleContent {
    PlotFileGroup root;
    bool hasHead = false, byColor = false;
};
/// Throws PlotStyleError that names `path` and the line.
PlotStyleContent UnpackPlotStyleFile(std::string_view bytes, const std::string& path);

/// "PATH, line 7: WHAT. REMEDY" as the error that it is.
[[noreturn]] void FailPlotStyle(const std::string& path, std::int32_t line, const std::string& what);

} // namespace sm::render
