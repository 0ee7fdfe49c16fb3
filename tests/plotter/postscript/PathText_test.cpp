// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotter/PsWritten.h"

namespace sm::plotter {
namespace {

using render::FillRule;
using render::LineCap;
using render::LineJoin;

TEST(PathText, SortsWhatIsPaintedTogether)
{
    const auto dash = [](PsWriter& w, double x, double y) { w.Stroke(Line(x, y, x + 1, y), kThin); };
    EXPECT_EQ(Written([&](PsWriter& w) {
                  dash(w, 5, 1);
                  dash(w, 6, 1); // goes on where the last one ends
                  dash(w, 3, 2);
                  dash(w, 5, 0);
                  w.Stroke(Line(9, 9, 8, 8), {0xFF0000, 0.25, LineCap::Round, LineJoin::Round});
                  dash(w, 0, 0);
              }),
              kThinPen + "30 20 m\n40 20 l\n50 10 m\n60 10 l\n70 10 l\n50 0 m\n60 0 l\nS\n"
                         "1 0 0 RG\n90 90 m\n80 80 l\nS\n0 G\n0 0 m\n10 0 l\nS\n");
    render::Path two = Line(5, 1, 6, 1);
    two.MoveTo({3, 1});
    two.LineTo({4, 1});
    EXPECT_EQ(Written([&](PsWriter& w) { w.Fill(two, 0, FillRule::NonZero); }),
              "0 g\n50 10 m\n60 10 l\n30 10 m\n40 10 l\nf\n");
}

TEST(PathText, HoldsPathsOfAnyLength)
{
    render::Path path = Line(0, 0, 1, 0);
    std::string wanted = kThinPen + "0 0 m\n10 0 l\n";
    for (int i = 2; i <= 5000; ++i) {
        path.LineTo({static_cast<double>(i), i % 2 / 10.0});
        wanted += std::to_string(10 * i) + " " + std::to_string(i % 2) + " l\n";
    }
    EXPECT_EQ(Written([&](PsWriter& w) { w.Stroke(path, kThin); }), wanted + "S\n");
}

} // namespace
} // namespace sm::plotter
