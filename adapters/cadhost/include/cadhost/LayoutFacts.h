// SPDX-License-Identifier: GPL-3.0-or-later
// What the host tells of the layouts of a drawing.
#pragma once

#include <cstdint>
#include <string>

namespace sm::cadhost {

/// A layout as the command line lists it.
struct LayoutFacts {
    std::string name;
    bool isModel = false, active = false;
    std::int32_t tabOrder = 0;
    std::string mediaName, configName, styleSheet, plotArea, scale;
    double paperWidth = 0, paperHeight = 0; ///< mm, turned as plotted
    std::uint64_t entities = 0;             ///< the sheet's own viewport aside
    std::uint32_t viewports = 0;
};

/// What is told of a layout without measuring anything.
struct LayoutOutline {
    std::string name;
    bool isModel = false;
    bool holdsSomething = false; ///< the sheet's own viewport aside
    bool hasPaper = false;       ///< the drawing says how large
    bool plotsDisplay = false;   ///< what a screen happened to show
    friend bool operator==(const LayoutOutline&, const LayoutOutline&) = default;
};

} // namespace sm::cadhost
