#include "render/Style.h"

#include "render/Palette.h"

namespace sm::render {

namespace {

constexpr double kDefaultLineweight = 0.25; // mm, for entities and layers that name none

bool NeverPlots(const std::string& layerName)
{
    constexpr std::string_view kDefpoints = "defpoints";
    return layerName.size() == kDefpoints.size() &&
           std::equal(layerName.begin(), layerName.end(), kDefpoints.begin(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? static_cast<char>(a + 32) : a) == b; });
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

Style StyleOf(const drawing::Layer& layer)
{
    Style style;
    SetColor(style, layer.color, layer.trueColor);
    style.width = LineweightMillimetres(layer.lineweight);
    style.linetype =
        layer.linetype == kLinetypeByLayer || layer.linetype == kLinetypeByBlock ? kContinuous : layer.linetype;
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
    }
    return layer;
}

} // namespace

double LineweightMillimetres(std::int16_t lineweight)
{
    return lineweight < 0 ? kDefaultLineweight : lineweight / 100.0;
}

LayerStates::LayerStates(const drawing::Drawing& drawing, std::span<const std::uint32_t> frozen, bool hideLayers,
                         drawing::Handle viewport)
{
    for (const drawing::Layer& layer : drawing.Layers()) {
        LayerState state;
        state.style = StyleOf(viewport == 0 || layer.overrides.empty() ? layer : Overridden(layer, viewport));
        state.frozen = layer.frozen && hideLayers;
        state.shown = !hideLayers || (!layer.off && !layer.frozen && layer.plotted && !NeverPlots(layer.name));
        m_states.push_back(state);
    }
    if (m_states.empty()) {
        m_states.emplace_back();
    }
    for (const std::uint32_t layer : frozen) {
        if (layer < m_states.size()) {
            m_states[layer].frozen = true;
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
    return style;
}

} // namespace sm::render
