// SPDX-License-Identifier: GPL-3.0-or-later
// The front end: what each entity of a space means, drawn on a canvas.
#pragma once

#include "drawing/Tables.h"
#include "render/Matrix.h"
#include "render/RenderReport.h"

#include <atomic>
#include <cstdint>
#include <functional>

namespace sm::render {

class ICanvas;
class References;
class TextEngine;
struct PlotStyleTable;

/// A space of the drawing, looked at and placed on a sheet.
struct Scene {
    const drawing::Drawing& drawing;
    std::uint32_t block = 0; ///< the space
    Matrix3 view;            ///< world to display plane (z dropped); identity for paper space and plan views
    Matrix2 toPaper;         ///< display plane to millimetres on the sheet
    Box2 clip;               ///< millimetres on the sheet; what lies outside isn't drawn
    bool paperSpace = false; ///< draw the viewports' contents
    bool lineweights = true; ///< false: every line gets the thinnest pen
    double lineweightScale = 1;
    bool viewportsFirst = true;
    bool viewportBorders = false;
    double linetypeUnit = 1; ///< drawing units of this space for one unit of a line type, scales aside
    const PlotStyleTable* plotStyles = nullptr; ///< null: everything is drawn as it is
    bool everyLayer = false;                    ///< also what layers hide: the marks tell what shows it
    References* references = nullptr;           ///< kept over several scenes; null: made for this one
    double resolution = 600;                    ///< dots per inch of the sheet: finer pictures are made coarser
    const std::atomic<bool>* stop = nullptr;    ///< once true, no further entity is begun
    /// Asked before each entity; the same once it was false. Null: not asked.
    const std::function<bool()>* goesOn = nullptr;
    drawing::ViewDepth depth = {}; ///< of `view`; where it isn't flat, its plane's origin is the target
    Vec3 direction{0, 0, 1};       ///< from the target to the eye
    bool hidesLines = false;       ///< of a model: lines behind faces are left out
    /// Entities that inserts may unfold to in all, of a hundred lines each; 0: more than any real sheet holds.
    std::uint64_t expansion = 0;
};

void RenderScene(const Scene& scene, ICanvas& canvas, TextEngine& text, RenderReport& report);

/// The box of what one entity draws in world x and y, text and nested blocks included; empty when it draws nothing.
/// `references` as in Scene.
Box2 BoundsOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record, TextEngine& text,
              References* references = nullptr);

/// The box of a whole space as it plots (hidden layers left out), in the display plane of `view`.
Box2 ExtentsOf(const drawing::Drawing& drawing, std::uint32_t block, const Matrix3& view, TextEngine& text,
               References* references = nullptr);

/// World to display plane of a view: looking along -`direction` at `target`, turned by `twist` degrees (DXF reference,
/// VPORT and VIEWPORT groups 16, 17 and 51). The display plane's origin is the target's image.
Matrix3 ViewMatrix(Vec3 direction, Vec3 target, double twist);

} // namespace sm::render
