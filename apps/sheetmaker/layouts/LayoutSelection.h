// SPDX-License-Identifier: GPL-3.0-or-later
// Which layouts a run converts, from what the drawing holds and what the user asked for.
#pragma once

#include "cadhost/LayoutFacts.h"
#include "commandline/Jobs.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sm::app {

/// Laid over the document and the settings for one run. Nothing in an optional: as the drawing or the settings have it.
struct LayoutSelection {
    std::optional<std::string> activeLayout;
    std::vector<std::string> onlyLayouts;        ///< not empty: the paper layouts that the document shows
    std::optional<std::int32_t> whatToPlot;      ///< see WhatToPlot
    std::optional<std::int32_t> pageSetupSource; ///< see PageSetupSource
    std::string error; ///< not empty: the wanted layout isn't there, as the end of a sentence about the drawing
    friend bool operator==(const LayoutSelection&, const LayoutSelection&) = default;
};

LayoutSelection SelectLayouts(const ConvertOptions& options, const std::vector<cadhost::LayoutOutline>& layouts);

} // namespace sm::app
