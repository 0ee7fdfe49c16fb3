// SPDX-License-Identifier: GPL-3.0-or-later
// What all painters of a run share: the drawing and where it goes, the entity at hand and what it is drawn with, and
// where in the nest of blocks the run stands.
#pragma once

#include "context/PaintOptions.h"
#include "context/WorkBudget.h"
#include "fonts/ShapeLibrary.h"
#include "ink/Ink.h"
#include "render/FrontEnd.h"

#include <memory>
#include <optional>
#include <vector>

namespace sm::render {

class FaceCollector;
struct PlotPen;

/// Of a run over an external reference: what its entities count as in the host drawing.
struct XrefMarks {
    std::uint64_t handle = 0;              ///< of the insert
    std::vector<std::string> layers;       ///< by the reference's own index; none: the run is over no reference
    std::vector<std::uint32_t> shownBy;    ///< index in the outermost drawing's layers, by the reference's own
    std::optional<std::uint32_t> hiddenBy; ///< the outermost drawing's layer that hides the whole reference
    /// The outermost drawing's index of a layer of the drawing that is painted.
    [[nodiscard]] std::uint32_t InHost(std::uint32_t layer) const
    {
        return hiddenBy ? *hiddenBy : layer < shownBy.size() ? shownBy[layer] : layer;
    }
};

struct PaintContext {
    /// An empty `clip` means everywhere; `hideLayers` false: layers and invisibility hide nothing.
    PaintContext(const drawing::Drawing& drawing, ICanvas& canvas, TextEngine& text, RenderReport* report,
                 const Box2& clip, const PaintOptions& options, bool hideLayers);
    ~PaintContext();
    PaintContext(const PaintContext&) = delete;
    PaintContext& operator=(const PaintContext&) = delete;

    const drawing::Drawing& drawing;
    TextEngine& text;
    RenderReport* report; ///< may be null
    PaintOptions options;
    Switches switches;
    bool hideLayers;
    Ink ink;
    LayerStates ownLayers;
    const LayerStates* layers;           ///< as the viewport at hand shows them
    drawing::Handle annotationScale = 0; ///< of the viewport at hand; 0: entities keep their own form
    /// Whether annotative entities without that scale are left out, and whether that is told.
    enum class OtherScales : std::uint8_t { Shown, LeftOut, LeftOutAndTold } otherScales = OtherScales::Shown;
    XrefMarks xref;
    FaceCollector* faces = nullptr; ///< not null: the walk asks for faces that hide lines, nothing is drawn

    // The entity at hand.
    const Frame* frame = nullptr;
    const LayerState* layer = nullptr;
    Style style;                  ///< its colour as the plot style turns it, with its transparency
    const PlotPen* pen = nullptr; ///< of the entity; null: plot styles change nothing
    double linetypeScale = 1;
    Path path; ///< empty when its painter begins
    // Kept so that drawing allocates nothing.
    Path outline;
    TextRun run;

    // Where the run stands.
    std::vector<std::uint32_t> openBlocks; ///< the space first
    std::shared_ptr<WorkBudget> budget;    ///< never null
    std::uint64_t insert = 0;              ///< handle of the insert whose block is painted next

    [[nodiscard]] bool Hidden(const drawing::Entity& entity, const Frame& in) const;
    /// The layer that hides all of an insert or dimension where its marks say so: the outermost counts.
    [[nodiscard]] std::optional<std::uint32_t> HidingLayer(const drawing::Entity& entity, const Frame& in,
                                                           bool ofFrozen) const;
    /// Makes `entity` the one at hand: what is drawn until `ink.End()` is its.
    void Enter(const drawing::Entity& entity, const drawing::EntityRecord& record, const Frame& in);
    /// What its lines are drawn with.
    [[nodiscard]] Pen StrokePen() const;
    /// The edge of what isn't filled, in the entity's pen without a line type.
    void StrokeEdge(const Path& edge);
    [[nodiscard]] double PenWidth(double lineweight) const;
    [[nodiscard]] std::uint32_t InkOf(const Style& of) const;
    /// False, and a remark made, for a block that is missing or holds itself.
    [[nodiscard]] bool CanEnter(std::uint32_t block);
    void Remark(std::string_view remark);
    /// Steps of the work on the entity at hand, beside those that its ink takes; see WorkBudget.
    void Spend(std::uint64_t steps) { ink.AddSteps(steps); }
    [[nodiscard]] References& Referenced();
    [[nodiscard]] ShapeLibrary& Shapes();

private:
    [[nodiscard]] bool CanDrawSymbols(const drawing::Linetype& linetype);
    std::vector<DashPattern> m_patterns; ///< of the drawing's line types
    std::unique_ptr<References> m_ownReferences;
    std::optional<ShapeLibrary> m_shapes;
};

/// Stands for an open block as long as it is painted.
class OpenBlock {
public:
    OpenBlock(PaintContext& context, std::uint32_t block) : m_open(context.openBlocks) { m_open.push_back(block); }
    ~OpenBlock() { m_open.pop_back(); }
    OpenBlock(const OpenBlock&) = delete;
    OpenBlock& operator=(const OpenBlock&) = delete;

private:
    std::vector<std::uint32_t>& m_open;
};

} // namespace sm::render
