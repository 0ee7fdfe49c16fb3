// SPDX-License-Identifier: GPL-3.0-or-later
// One layout of a drawing as one PostScript file of one page.
#pragma once

#include "drawing/Layouts.h"
#include "plotter/Placement.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

namespace sm::render {
class ICanvas;
class References;
class RenderReport;
class TextEngine;
struct PlotStyleTable;
} // namespace sm::render

namespace sm::plotter {

struct PlotJob {
    const drawing::Drawing& drawing;
    const drawing::Layout& layout;
    drawing::PlotSettings settings; ///< as configured; paper size and margins of the unturned medium
    double resolution = 1200;       ///< dots per inch
    std::string title = {};         ///< %%Title: the sheet's name
    std::string creator = {};       ///< %%Creator
    /// Gives what the layout's space plots, for callers that know it already; computed when not set.
    std::function<Box2(const render::Matrix3& view)> extents = {};
    const render::PlotStyleTable* plotStyles = nullptr; ///< the table of `settings`; null: plotted without
    bool keepLayers = false;                            ///< the page says what each layer shows, hidden ones included
    render::References* references = nullptr;           ///< as in render::Scene
    double penScale = 1;                                ///< all pens are so much wider
    std::uint64_t expansion = 0;                        ///< as in render::Scene
    /// Asked before each entity; once false, the page is given up: PlotError. Empty: not asked.
    std::function<bool()> goesOn = {};
};

struct PlottedPage {
    Placement placement;
    bool hasInk = false; ///< something was drawn, whatever its colour
};

/// Plots to `path`, which appears whole or not at all. Throws PlotError with a line that names file and cause.
PlottedPage PlotToPostScript(const PlotJob& job, const std::string& path, render::TextEngine& text,
                             render::RenderReport& report);

/// A page as it is read: turned, in millimetres from its lower-left corner.
struct DrawnPage {
    Placement placement;
    double width = 0, height = 0;
    render::Matrix2 fromSheet; ///< from the sheet as it leaves the plotter
};

/// Draws on `canvas`, in place of a file, what PlotToPostScript would write. Gives up once `stop` is true, where there
/// is one. Throws PlotError.
DrawnPage PlotOnCanvas(const PlotJob& job, render::ICanvas& canvas, render::TextEngine& text,
                       render::RenderReport& report, const std::atomic<bool>* stop);

} // namespace sm::plotter
