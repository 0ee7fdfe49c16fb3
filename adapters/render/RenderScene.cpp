#include "drawing/Annotation.h"
#include "render/ClipBox.h"
#include "render/FrontEnd.h"
#include "render/Painter.h"

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

} // namespace

void RenderScene(const Scene& scene, ICanvas& canvas, TextEngine& text, RenderReport& report)
{
    PaintOptions options;
    options.lineweights = scene.lineweights;
    options.lineweightScale = scene.lineweightScale;
    options.paperSpace = scene.paperSpace;
    options.viewportsFirst = scene.viewportsFirst;
    options.viewportBorders = scene.viewportBorders;
    options.scaleLinetypesWithPaper = LinetypesScaleWithPaper(scene);
    Frame frame;
    frame.toPaper = Flatten(scene.view, scene.toPaper);
    const double annotation = scene.paperSpace ? 1 : drawing::ModelLinetypeUnit(scene.drawing);
    frame.dashScale = annotation * LinetypeScale(scene.drawing) * scene.linetypeUnit * ScaleOf(scene.toPaper);
    Painter painter(scene.drawing, canvas, text, &report, scene.clip, options);
    if (scene.clip.Empty()) {
        painter.PaintSpace(scene.block, frame);
        return;
    }
    Path clip;
    AppendBox(clip, scene.clip);
    const Ink::ClipGuard guard(painter.Output(), clip, FillRule::NonZero);
    painter.PaintSpace(scene.block, frame);
}

} // namespace sm::render
