// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for a whole run of the painters, and for the entities of one block.
#pragma once

#include "drawing/Drawing.h"
#include "render/Projection.h"
#include "render/References.h"
#include "render/Style.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace sm::render {

class PlotPens;
class WorkBudget;

/// How the entities of one block land on the sheet, and what they take over from their insert.
struct Frame {
    Projection toPaper;
    Inherited inherited;
    double dashScale = 1; ///< mm for one unit of a line type, $LTSCALE included
};

/// How a drawing wants its objects to be seen, those of the drawings that it shows in place of blocks too (DXF
/// reference, header variables of these names; frames as in drawing/Drawing.h).
struct Switches {
    drawing::FrameSettings frames;
    std::int32_t attributes = 1; ///< ATTMODE: 0 none is seen, 1 as marked, 2 all
    std::int32_t pointMode = 0;  ///< PDMODE
    double pointSize = 0;        ///< PDSIZE, drawing units, or in per cent of the view's height when it is negative
    bool fills = true;           ///< FILLMODE: hatches are seen, and areas are filled
    bool hiddenFrames = false;   ///< SPLFRAME: frames of fitted lines and hidden edges of faces are seen
    bool textFrames = false;     ///< QTEXTMODE: texts are seen as their boxes
};

/// What holds for a whole run.
struct PaintOptions {
    bool lineweights = true;
    double lineweightScale = 1;
    bool paperSpace = false;
    bool viewportsFirst = true;
    bool viewportBorders = false;
    bool scaleLinetypesWithPaper = true;           ///< PSLTSCALE
    std::optional<Switches> switches;              ///< of the outermost drawing; nothing: the drawing's own
    const PlotPens* pens = nullptr;                ///< null: plot styles change nothing
    bool everyLayer = false;                       ///< draw what layers hide as well
    References* references = nullptr;              ///< null: made when they are needed
    double dotsPerMillimetre = 24;                 ///< finer pictures are made coarser
    const std::atomic<bool>* stop = nullptr;       ///< once true, no further entity is begun
    const std::function<bool()>* goesOn = nullptr; ///< as in Scene
    std::uint64_t expansion = 0;                   ///< as in Scene
    std::shared_ptr<WorkBudget> budget;            ///< of the run that this one is a part of; null: one of its own
    bool boxesOnly = false; ///< text and viewports as their outlines, continuous lines: for bounds
};

} // namespace sm::render
