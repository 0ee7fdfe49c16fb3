// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/Paths.h"
#include "drawing/Drawing.h"
#include "page/PenRoom.h"
#include "plotter/Plotter.h"
#include "postscript/PsDocument.h"
#include "render/FrontEnd.h"
#include "render/References.h"
#include "render/TextLayout.h"

#include <system_error>

namespace sm::plotter {

namespace {

using drawing::PlotSettings;

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of(base::kSeparators);
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

render::Scene SceneOf(const PlotJob& job, const Placement& placement)
{
    render::Scene scene{job.drawing, job.layout.block, placement.view, placement.toPaper, placement.clip};
    scene.paperSpace = !job.layout.isModel;
    scene.depth = placement.depth;
    scene.direction = placement.direction;
    scene.hidesLines = job.layout.isModel && job.settings.Has(PlotSettings::kHidden);
    scene.references = job.references;
    scene.resolution = job.resolution;
    scene.lineweights = job.settings.Has(PlotSettings::kLineweights);
    // Lineweights are paper measures unless a paper layout is asked to scale them with its plot.
    if (scene.paperSpace && job.settings.Has(PlotSettings::kScaleLineweights)) {
        scene.lineweightScale = placement.scaleNumerator / placement.scaleDenominator;
    }
    scene.lineweightScale *= job.penScale;
    scene.clip = ClipWithRoom(placement, WidestPen(job, scene.lineweightScale));
    scene.viewportsFirst = job.settings.Has(PlotSettings::kDrawViewportsFirst);
    scene.viewportBorders = job.settings.Has(PlotSettings::kViewportBorders);
    scene.plotStyles = job.plotStyles;
    scene.expansion = job.expansion;
    scene.everyLayer = job.keepLayers;
    return scene;
}

Placement PlaceOf(const PlotJob& job, render::TextEngine& text)
{
    return Place(job.drawing, job.layout, job.settings, [&](const render::Matrix3& view) {
        return job.extents ? job.extents(view)
                           : render::ExtentsOf(job.drawing, job.layout.block, view, text, job.references);
    });
}

/// The way back from the turned medium (see SheetFrame) to the page as it is read.
render::Matrix2 ReadingOf(const Placement& placement, std::int32_t rotation)
{
    switch (rotation) {
    case 1:
        return {0, 1, -1, 0, placement.sheetHeight, 0};
    case 2:
        return {-1, 0, 0, -1, placement.sheetWidth, placement.sheetHeight};
    case 3:
        return {0, -1, 1, 0, 0, placement.sheetWidth};
    default:
        return {};
    }
}

Box2 Turned(const render::Matrix2& turn, const Box2& box)
{
    Box2 turned;
    turned.Add(turn.Apply(box.min));
    turned.Add(turn.Apply(box.max));
    return turned;
}

std::vector<PsDocument::Layer> LayersOf(const PlotJob& job, const PsWriter& writer)
{
    std::vector<PsDocument::Layer> layers;
    for (const std::uint32_t number : writer.Layers()) {
        const drawing::Layer& layer = job.drawing.Layers().at(number);
        layers.push_back({number, layer.name, render::SightOf(layer)});
    }
    return layers;
}

} // namespace

PlottedPage PlotToPostScript(const PlotJob& job, const std::string& path, render::TextEngine& text,
                             render::RenderReport& report)
{
    const Placement placement = PlaceOf(job, text);
    try {
        PsWriter writer(kUnitsPerInch, FolderOf(path), job.resolution);
        if (job.keepLayers) {
            writer.KeepLayers();
        }
        if (!placement.clip.Empty()) {
            render::Scene scene = SceneOf(job, placement);
            scene.goesOn = job.goesOn ? &job.goesOn : nullptr;
            render::RenderScene(scene, writer, text, report);
        }
        if (job.goesOn && !job.goesOn()) {
            throw PlotError("The plot file " + path + " was not written: the plot was cancelled.");
        }
        const PsDocument document{job.title,     job.creator,           placement.sheetWidth, placement.sheetHeight,
                                  kUnitsPerInch, job.settings.rotation, LayersOf(job, writer)};
        WriteDocument(document, writer, path);
        return {placement, writer.HasInk()};
    } catch (const std::system_error& error) {
        throw PlotError("The plot file " + path + " can't be written: " + error.code().message() + ".");
    }
}

DrawnPage PlotOnCanvas(const PlotJob& job, render::ICanvas& canvas, render::TextEngine& text,
                       render::RenderReport& report, const std::atomic<bool>* stop)
{
    const Placement placement = PlaceOf(job, text);
    const bool lying = job.settings.rotation == 1 || job.settings.rotation == 3;
    DrawnPage page{placement, lying ? placement.sheetHeight : placement.sheetWidth,
                   lying ? placement.sheetWidth : placement.sheetHeight, ReadingOf(placement, job.settings.rotation)};
    if (placement.clip.Empty())
        return page;
    render::Scene scene = SceneOf(job, placement);
    scene.toPaper = render::Compose(page.fromSheet, scene.toPaper);
    scene.clip = Turned(page.fromSheet, scene.clip);
    scene.stop = stop;
    render::RenderScene(scene, canvas, text, report);
    return page;
}

} // namespace sm::plotter
