// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Units.h"
#include "drawing/Annotation.h"
#include "paint/Painter.h"
#include "plotstyle/PlotPens.h"
#include "render/ClipBox.h"
#include "render/FrontEnd.h"

#include <algorithm>

namespace sm::render {

namespace {

bool LinetypesScaleWithPaper(const Scene& scene)
{
    for (const drawing::Layout& layout : scene.drawing.Layouts()) {
        if (layout.block == scene.block && layout.hasPlotSettings) {
            return layout.psltscale;
        }
    }
    return scene.drawing.HeaderInteger("$PSLTSCALE", 1) != 0;
}

double LinetypeScale(const drawing::Drawing& drawing)
{
    const double scale = drawing.HeaderReal("$LTSCALE", 1);
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

std::optional<PlotPens> PensOf(const Scene& scene, RenderReport& report)
{
    if (scene.plotStyles == nullptr) {
        return std::nullopt;
    }
    const std::string codePage = scene.drawing.HeaderText("$DWGCODEPAGE", "");
    PlotPens pens(*scene.plotStyles, scene.drawing.PlotStyleNames(), codePage);
    if (pens.HasDiamonds()) {
        report.Remark("diamond ends and joins of a plot style table drawn round");
    }
    for (const std::string& name : pens.Missing()) {
        report.Remark("plot style \"" + name +
                      "\" is not in the plot style table, its objects plotted like \"Normal\"");
    }
    return pens;
}

} // namespace

void RenderScene(const Scene& scene, ICanvas& canvas, TextEngine& text, RenderReport& report)
{
    const std::optional<PlotPens> pens = PensOf(scene, report);
    PaintOptions options;
    options.pens = pens ? &*pens : nullptr;
    options.everyLayer = scene.everyLayer;
    options.lineweights = scene.lineweights;
    options.lineweightScale = scene.lineweightScale;
    options.paperSpace = scene.paperSpace;
    options.viewportsFirst = scene.viewportsFirst;
    options.viewportBorders = scene.viewportBorders;
    options.references = scene.references;
    options.stop = scene.stop;
    options.goesOn = scene.goesOn;
    options.expansion = scene.expansion;
    options.dotsPerMillimetre = scene.resolution / base::kMillimetresPerInch;
    options.scaleLinetypesWithPaper = LinetypesScaleWithPaper(scene);
    Frame frame;
    frame.toPaper = Flatten(scene.view, scene.toPaper);
    const double annotation = scene.paperSpace ? 1 : drawing::ModelLinetypeUnit(scene.drawing);
    frame.dashScale = annotation * LinetypeScale(scene.drawing) * scene.linetypeUnit * ScaleOf(scene.toPaper);
    Painter painter(scene.drawing, canvas, text, &report, scene.clip, options);
    if (!scene.paperSpace) {
        painter.ShowModelScale();
    }
    const auto paint = [&] {
        const SpaceLook look =
            LookOf(scene.depth, scene.direction, ScaleOf(scene.toPaper), scene.toPaper.Apply({0, 0}), scene.hidesLines);
        if (!scene.paperSpace && look.InSpace()) {
            painter.PaintModelInSpace(scene.block, frame, look);
        } else {
            painter.PaintSpace(scene.block, frame);
        }
    };
    if (scene.clip.Empty()) {
        paint();
        return;
    }
    Path clip;
    AppendBox(clip, scene.clip);
    const Ink::ClipGuard guard(painter.Output(), clip, FillRule::NonZero);
    paint();
}

} // namespace sm::render
