// SPDX-License-Identifier: GPL-3.0-or-later
// The front end: what each entity of a space means, drawn on a canvas.
#pragma once

#include "drawing/Drawing.h"
#include "render/Canvas.h"
#include "render/TextLayout.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

class References;
struct PlotStyleTable;

/// What became of each entity of the drawing over a run; the best outcome counts.
enum class Outcome : std::uint8_t {
    NotReached, ///< in a space or block that no plotted page shows
    Hidden,     ///< layer off, frozen or not plotted; invisible; viewport off; an attribute definition
    OffPage,    ///< nothing of it lies on the plotted area
    NotDrawn,   ///< of a kind, or with content, that can't be drawn
    Drawn
};

/// Outcomes by entity, and what was not drawn by kind and layer. `Outcomes` sums up to the entities read.
class RenderReport {
public:
    explicit RenderReport(const drawing::Drawing& drawing);
    void Note(const drawing::EntityRecord& record, Outcome outcome);
    [[nodiscard]] std::uint64_t Count(Outcome outcome) const;
    /// Of the entities that stand in one block, those in blocks that it inserts aside.
    [[nodiscard]] std::uint64_t CountIn(std::uint32_t block, Outcome outcome) const;
    struct NotDrawnKind {
        std::string kind, layer;
        std::uint64_t count = 0;
    };
    /// Entities whose best outcome is NotDrawn, by kind and layer.
    [[nodiscard]] std::vector<NotDrawnKind> NotDrawn() const;
    /// Something drawn otherwise than the drawing has it ("hatch pattern too dense, lines left out").
    void Remark(std::string_view text);
    /// How often each remark was made.
    [[nodiscard]] const std::map<std::string, std::uint64_t, std::less<>>& Remarks() const { return m_remarks; }

private:
    const drawing::Drawing& m_drawing;
    std::vector<Outcome> m_outcomes;
    std::map<std::string, std::uint64_t, std::less<>> m_remarks;
};

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
