// SPDX-License-Identifier: GPL-3.0-or-later
// Colour, line type and lineweight of an entity, BYLAYER and BYBLOCK resolved.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/entities/Entity.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sm::render {

/// What an entity is drawn with.
struct Style {
    std::uint32_t color = 0;       ///< 0xRRGGBB on paper
    std::int16_t index = 7;        ///< the colour index behind it; 0 for a true colour
    double width = 0;              ///< mm, unscaled
    std::uint32_t linetype = 0;    ///< index into the linetypes
    std::uint32_t plotStyle = 0;   ///< named plot style: its place in the drawing's from 1; 0: "Normal"
    std::uint8_t transparency = 0; ///< 0 opaque to 254 all but clear
};

/// Line type indexes that the drawing fixes.
inline constexpr std::uint32_t kLinetypeByLayer = 0;
inline constexpr std::uint32_t kLinetypeByBlock = 1;
inline constexpr std::uint32_t kContinuous = 2;

/// A layer as one view shows it.
struct LayerState {
    Style style;
    bool frozen = false;
    bool plots = true;                                               ///< neither off nor frozen nor left out of plots
    bool shown = true;                                               ///< the same, or every layer shows
    const std::vector<drawing::PlotStyleName>* plotStyles = nullptr; ///< of the drawing
};

/// What the contents of a block take over from its insert.
struct Inherited {
    Style byBlock{0, 7, 0.25, kContinuous};     ///< of no insert: black, default lineweight
    std::uint32_t layer = 0;                    ///< stands in for layer "0"
    std::optional<std::uint32_t> hiddenBy = {}; ///< where every layer shows: the insert's that hides all it holds
};

/// What a layer's own flags say.
enum class LayerSight : std::uint8_t { Plots, Off, NotPlotted };
LayerSight SightOf(const drawing::Layer& layer);

/// The layers of a drawing for one view, ready to be asked per entity.
class LayerStates {
public:
    /// `frozen`: layers frozen in this view alone. `hidden` false: every layer shows.
    /// `viewport`: its handle, for what layers look like in it alone; 0: none.
    LayerStates(const drawing::Drawing& drawing, std::span<const std::uint32_t> frozen, bool hideLayers = true,
                drawing::Handle viewport = 0);
    explicit LayerStates(std::vector<LayerState> states) : m_states(std::move(states)) {}
    [[nodiscard]] const LayerState& Of(std::uint32_t layer) const
    {
        return m_states[layer < m_states.size() ? layer : 0];
    }

private:
    std::vector<LayerState> m_states;
};

/// The layer whose state counts for `entity`: its own, or the insert's where it lies on layer "0" of a block.
inline std::uint32_t EffectiveLayer(const drawing::Entity& entity, const Inherited& inherited)
{
    return entity.layer == 0 ? inherited.layer : entity.layer;
}

Style Resolve(const drawing::Entity& entity, const LayerState& layer, const Inherited& inherited);

/// Lineweight in mm of a group 370 value that is neither by layer nor by block.
double LineweightMillimetres(std::int16_t lineweight);

} // namespace sm::render
