// SPDX-License-Identifier: GPL-3.0-or-later
// Layers and opacity in page bodies.
#include "plotter/PsWritten.h"

namespace sm::plotter {
namespace {

using render::FillRule;
using render::Path;

TEST(PsWriter, SetsOpacityBesideTheColour)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  Path box;
                  box.MoveTo({0, 0});
                  box.LineTo({1, 0});
                  box.LineTo({1, 1});
                  w.Fill(box, 0x80000000, FillRule::NonZero);
                  w.Fill(box, 0x80000000, FillRule::NonZero);
                  w.Fill(box, 0x00000000, FillRule::NonZero);
              }),
              "/A127 gs\n0 g\n0 0 m\n10 0 l\n10 10 l\nf\n0 0 m\n10 0 l\n10 10 l\nf\n"
              "/A255 gs\n0 0 m\n10 0 l\n10 10 l\nf\n");
}

TEST(PsWriter, MarksWhatEachLayerShows)
{
    std::set<std::uint32_t> layers;
    const auto draw = [&](PsWriter& w) {
        w.BeginEntity({1, "LINE", "A", 4});
        w.Stroke(Line(1, 1, 2, 2), kThin);
        w.BeginEntity({2, "LINE", "A", 4});
        w.Stroke(Line(2, 2, 3, 3), kThin);
        w.BeginEntity({3, "LINE", "B", 0});
        w.Stroke(Line(3, 3, 4, 4), kThin);
        layers = w.Layers();
    };
    EXPECT_EQ(Written(draw), kThinPen + "10 10 m\n20 20 l\n30 30 l\n40 40 l\nS\n");
    EXPECT_TRUE(layers.empty());
    EXPECT_EQ(Written([&](PsWriter& w) {
                  w.KeepLayers();
                  draw(w);
              }),
              "/OC /L4 BDC\n" + kThinPen +
                  "10 10 m\n20 20 l\n30 30 l\nS\nEMC\n/OC /L0 BDC\n30 30 m\n40 40 l\nS\nEMC\n");
    EXPECT_EQ(layers, (std::set<std::uint32_t>{0, 4}));
}

TEST(PsDocument, NamesItsLayersInTheHead)
{
    PsDocument document{"T", "C", 10, 10, 254, 0};
    EXPECT_EQ(EmptyDocumentText(document).find("%SheetmakerLayer"), std::string::npos);
    using Sight = render::LayerSight;
    document.layers = {{0, "0", Sight::Plots}, {3, "W\xC3\xA4", Sight::Off}, {12, "", Sight::NotPlotted}};
    EXPECT_NE(EmptyDocumentText(document).find(
                  "%%EndComments\n%SheetmakerLayer: 0 on <30>\n%SheetmakerLayer: 3 off <57C3A4>\n"
                  "%SheetmakerLayer: 12 unplotted <>\n%%BeginProlog\n"),
              std::string::npos);
}

} // namespace
} // namespace sm::plotter
