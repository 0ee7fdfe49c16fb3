// SPDX-License-Identifier: GPL-3.0-or-later
// The whole road: bytes, a drawing, its plot, the page that the publisher makes of it.
#include "drawing/Drawing.h"
#include "fuzz/Target.h"
#include "fuzz/targets/Pages.h"
#include "fuzz/targets/SmallDrawings.h"
#include "fuzz/targets/Targets.h"
#include "plotter/Placement.h"

namespace sm::fuzz {

/// Inputs of odd length keep their layers.
void FuzzRoad(std::string_view input)
{
    try {
        for (const std::string& file : PlotPages(input, input.size() % 2 == 1)) {
            auto page = publisher::ReadDialectPage(file);
            if (!page || !MakePage(std::move(*page)))
                Fail("what the plotter writes is in its dialect");
        }
    } catch (const drawing::DrawingError& error) {
        CheckReason(error.what(), "plan.dxf: ");
    } catch (const plotter::PlotError& error) {
        CheckReason(error.what());
    }
}

Inputs RoadSeeds()
{
    return SmallDrawings();
}

} // namespace sm::fuzz
