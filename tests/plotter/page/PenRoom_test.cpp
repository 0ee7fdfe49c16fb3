// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotter/PlotRows.h"

#include "page/PenRoom.h"
#include "plotter/FakeDrawing.h"
#include "render/PlotStyleTable.h"

#include <gtest/gtest.h>

namespace sm::plotter {
namespace {

TEST(PenRoom, TheClipGrowsWhereItWouldCutPensAlone)
{
    struct Row {
        const char* name;
        Box2 whole, clip;
    };
    const Row rows[] = {
        {"no extents are plotted", {}, kPrintable},
        {"well inside", BoxOf(50, 50, 100, 100), kPrintable},
        {"the printable area is filled", kPrintable, BoxOf(4, 9, 196, 278)},
        {"left and right fill it", BoxOf(5, 100, 195, 200), BoxOf(4, 10, 196, 277)},
        {"nearer than the pen is wide", BoxOf(5.25, 50, 100, 276.5), BoxOf(4.25, 10, 195, 277.5)},
        {"what goes beyond is cut", BoxOf(-20, 9.99, 195, 300), BoxOf(5, 10, 196, 277)},
        {"a line along an edge", BoxOf(5, 10, 195, 10), BoxOf(4, 9, 196, 277)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Placement placement;
        placement.clip = kPrintable;
        placement.whole = row.whole;
        const Box2 clip = ClipWithRoom(placement, 2);
        EXPECT_NEAR(clip.min.x, row.clip.min.x, 1e-9);
        EXPECT_NEAR(clip.min.y, row.clip.min.y, 1e-9);
        EXPECT_NEAR(clip.max.x, row.clip.max.x, 1e-9);
        EXPECT_NEAR(clip.max.y, row.clip.max.y, 1e-9);
    }
}

TEST(PenRoom, TheWidestPenIsTheTablesOrTheHosts)
{
    const FakeDrawing drawing;
    const drawing::Layout layout;
    render::PlotStyleTable styles;
    styles.lineweights = {0.1, 3.5};
    PlotJob job{drawing, layout, A4(kExtents, 0)};
    EXPECT_EQ(WidestPen(job, 1), 0.06) << "without lineweights";
    job.settings.flags = PlotSettings::kLineweights;
    EXPECT_EQ(WidestPen(job, 1), 2.11);
    EXPECT_EQ(WidestPen(job, 0.5), 1.055);
    EXPECT_EQ(WidestPen(job, 1e-9), 0.06);
    job.plotStyles = &styles;
    EXPECT_EQ(WidestPen(job, 1), 3.5);
}

} // namespace
} // namespace sm::plotter
