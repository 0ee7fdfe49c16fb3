// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/Style.h"

#include "base/text/Names.h"
#include "drawing/entities/Entity.h"
#include "ink/Palette.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr double kDefaultLineweight = 0.25; // mm, for entities and layers that name none

bool NeverPlots(const std::string& layerName)
{
    return base::SameName(layerName, "Defpoints");
}

// Some programs write index 7 as the true colour white as well: that is the colour of the pen, black on paper. A white
// of its own stays white.
void SetColor(Style& style, std::int16_t index, std::optional<std::uint32_t> trueColor)
{
    constexpr std::int16_t kPenColor = 7;
    constexpr std::uint32_t kWhite = 0xFFFFFF;
    const bool own = trueColor && !(*trueColor == kWhite && index == kPenColor);
    style.index = own ? std::int16_t{0} : index;
    style.color = own ? *trueColor : PaperColor(index);
}

std::uint8_t TransparencyOf(std::uint8_t opacity)
{
    constexpr std::uint8_t kMost = 254;
    return std::min<std::uint8_t>(static_cast<std::uint8_t>(255 - opacity), kMost);
}

/// The place of the style that `is` holds for, from 1; 0 when there is none.
template <class Test> std::uint32_t PlaceOf(const std::vector<drawing::PlotStyleName>& styles, const Test& is)
{
    const auto found = std::find_if(styles.begin(), styles.end(), is);
    return found == styles.end() ? 0 : static_cast<std::uint32_t>(found - styles.begin()) + 1;
}

std::uint32_t PlotStyleOf(const drawing::Entity& entity, const LayerState& layer, const Inherited& inherited)
{
    using Source = drawing::Entity::StyleSource;
    switch (entity.plotStyleSource) {
    case Source::Layer:
        break;
    case Source::Block:
        return inherited.byBlock.plotStyle;
    case Source::Default:
        return 0;
    case Source::Own:
        return layer.plotStyles == nullptr ? 0 : PlaceOf(*layer.plotStyles, [&](const drawing::PlotStyleName& style) {
            return style.handle == entity.plotStyle;
        });
    }
    return layer.style.plotStyle;
}

Style StyleOf(const drawing::Layer& layer, const std::vector<drawing::PlotStyleName>& plotStyles)
{
    Style style;
    SetColor(style, layer.color, layer.trueColor);
    style.width = LineweightMillimetres(layer.lineweight);
    style.linetype =
        layer.linetype == kLinetypeByLayer || layer.linetype == kLinetypeByBlock ? kContinuous : layer.linetype;
    if (!layer.plotStyle.empty()) {
        style.plotStyle =
            PlaceOf(plotStyles, [&](const drawing::PlotStyleName& named) { return named.name == layer.plotStyle; });
    }
    style.transparency = TransparencyOf(layer.transparency.value_or(255));
    return style;
}

/// The layer as a viewport shows it.
drawing::Layer Overridden(drawing::Layer layer, drawing::Handle viewport)
{
    for (const drawing::LayerOverride& own : layer.overrides) {
        if (own.viewport != viewport) {
            continue;
        }
        if (own.color || own.trueColor) {
            layer.trueColor = own.trueColor;
            layer.color = own.color.value_or(layer.color);
        }
        layer.linetype = own.linetype.value_or(layer.linetype);
        layer.lineweight = own.lineweight.value_or(layer.lineweight);
        layer.transparency = own.transparency ? own.transparency : layer.transparency;
    }
    return layer;
}

} // namespace

double LineweightMillimetres(std::int16_t lineweight)
{
    return lineweight < 0 ? kDefaultLineweight : lineweight / 100.0;
}

LayerSight SightOf(const drawing::Layer& layer)
{
    if (layer.off || layer.frozen) {
        return LayerSight::Off;
    }
    return layer.plotted && !NeverPlots(layer.name) ? LayerSight::Plots : LayerSight::NotPlotted;
}

LayerStates::LayerStates(const drawing::Drawing& drawing, std::span<const std::uint32_t> frozen, bool hideLayers,
                         drawing::Handle viewport)
{
    for (const drawing::Layer& layer : drawing.Layers()) {
        LayerState state;
        state.style = StyleOf(viewport == 0 || layer.overrides.empty() ? layer : Overridden(layer, viewport),
                              drawing.PlotStyleNames());
        state.plotStyles = &drawing.PlotStyleNames();
        state.frozen = layer.frozen && hideLayers;
        state.plots = SightOf(layer) == LayerSight::Plots;
        state.shown = !hideLayers || state.plots;
        m_states.push_back(state);
    }
    if (m_states.empty()) {
        m_states.emplace_back();
    }
    for (const std::uint32_t layer : frozen) {
        if (layer < m_states.size()) {
            m_states[layer].frozen = true;
            m_states[layer].plots = false;
            m_states[layer].shown = false;
        }
    }
}

Style Resolve(const drawing::Entity& entity, const LayerState& layer, const Inherited& inherited)
{
    Style style = layer.style;
    if (entity.trueColor) {
        SetColor(style, entity.color, entity.trueColor);
    } else if (entity.color == drawing::kByBlock) {
        style.color = inherited.byBlock.color;
        style.index = inherited.byBlock.index;
    } else if (entity.color != drawing::kByLayer) {
        SetColor(style, entity.color, std::nullopt);
    }
    if (entity.linetype == kLinetypeByBlock) {
        style.linetype = inherited.byBlock.linetype;
    } else if (entity.linetype != kLinetypeByLayer) {
        style.linetype = entity.linetype;
    }
    if (entity.lineweight == drawing::kLineweightByBlock) {
        style.width = inherited.byBlock.width;
    } else if (entity.lineweight != drawing::kLineweightByLayer) {
        style.width = LineweightMillimetres(entity.lineweight);
    }
    if (entity.transparency) {
        style.transparency = TransparencyOf(*entity.transparency);
    } else if (entity.transparencyByBlock) {
        style.transparency = inherited.byBlock.transparency;
    }
    style.plotStyle = PlotStyleOf(entity, layer, inherited);
    return style;
}

} // namespace sm::render
