// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

#include <algorithm>

namespace sm::drawing {

namespace {

struct ReadLayer {
    Layer layer;
    std::string_view rawName;
    Handle plotStyle = 0;
    bool hasColor = false;
};

void TakeColor(ReadLayer& read, std::int32_t color)
{
    read.hasColor = true;
    read.layer.off = color < 0;
    const std::int32_t index = color < 0 ? -std::max(color, -256) : color;
    read.layer.color = index >= 1 && index <= 255 ? static_cast<std::int16_t>(index) : std::int16_t{7};
}

ReadLayer ReadLayerEntry(const Model& model, const Slice& slice)
{
    ReadLayer read;
    read.layer.linetype = 2;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        switch (tag.Code()) {
        case 2:
            read.rawName = tag.Name();
            break;
        case 5:
            read.layer.handle = tag.HandleValue();
            break;
        case 6:
            read.layer.linetype = model.source.linetypes.Find(tag.Name(), *model.source.text).value_or(2);
            break;
        case 62:
            TakeColor(read, tag.Integer());
            break;
        case 70:
            read.layer.frozen = (tag.Integer() & 1) != 0;
            break;
        case 290:
            read.layer.plotted = tag.Integer() != 0;
            break;
        case 370:
            read.layer.lineweight = static_cast<std::int16_t>(tag.Integer());
            break;
        case 390:
            read.plotStyle = tag.HandleValue();
            break;
        case 420:
            read.layer.trueColor = static_cast<std::uint32_t>(tag.Long() & 0xFFFFFF);
            break;
        case 430:
            if (read.layer.trueColor == 0U)
                read.layer.trueColor.reset();
            break;
        default:
            break;
        }
    });
    read.layer.name = model.Text(read.rawName);
    return read;
}

std::string PlotStyleOf(const Model& model, Handle handle)
{
    for (const PlotStyleName& style : model.plotStyles)
        if (style.handle == handle)
            return style.name;
    return {};
}

/// Extended data of AcCmTransparency: the opacity in the low byte, as in group 440 of entities.
void TakeTransparency(const Model& model, const Slice& slice, Layer& layer)
{
    ForEachExtended(model, slice, "AcCmTransparency", [&](const TagCursor& tag) {
        if (tag.Code() == 1071 && (tag.Long() >> 24 & 0xFF) == 2)
            layer.transparency = static_cast<std::uint8_t>(tag.Long() & 0xFF);
    });
}

/// One converter writes the colour of every layer with the sign that means "off".
bool SignsMeanNothing(const Model& model)
{
    const bool every =
        std::all_of(model.layers.begin(), model.layers.end(), [](const Layer& layer) { return layer.off; });
    return every && model.structure.comment.starts_with("LibreDWG");
}

void AddEntry(Model& model, ReadLayer&& read, std::uint32_t index)
{
    read.layer.plotStyle = PlotStyleOf(model, read.plotStyle);
    model.source.layers.Add(read.rawName, read.layer.name, index);
    if (read.layer.handle != 0)
        model.source.layerOfHandle.emplace(read.layer.handle, index);
    if (index < model.layers.size())
        model.layers[index] = std::move(read.layer);
    else
        model.layers.push_back(std::move(read.layer));
}

} // namespace

/// Names of the placeholders in ACAD_PLOTSTYLENAME: drawings with named plot styles.
void BuildPlotStyles(Model& model)
{
    const Dictionary* const names = model.RootEntry("ACAD_PLOTSTYLENAME");
    if (names == nullptr || model.header.Integer("$PSTYLEMODE", 1) != 0)
        return;
    for (const auto& [name, entry] : names->entries)
        if (entry != 0)
            model.plotStyles.push_back({entry, model.Text(name)});
}

void BuildLayers(Model& model)
{
    model.layers.emplace_back();
    model.layers[0].name = "0";
    model.layers[0].linetype = 2;
    bool hasZero = false;
    ForEachEntry(model, "LAYER", [&](const Slice& slice) {
        ReadLayer read = ReadLayerEntry(model, slice);
        if (read.layer.name.empty()) {
            model.findings.Add(Damage::NamelessEntry, slice.line);
            return;
        }
        TakeTransparency(model, slice, read.layer);
        const bool zero = read.layer.name == "0" && !hasZero;
        hasZero = hasZero || zero;
        AddEntry(model, std::move(read), zero ? 0 : static_cast<std::uint32_t>(model.layers.size()));
    });
    if (!hasZero)
        model.source.layers.Add("0", "0", 0);
    if (SignsMeanNothing(model)) {
        model.findings.Add(Damage::SignsOfAllLayers, 1);
        for (Layer& layer : model.layers)
            layer.off = false;
    }
}

} // namespace sm::drawing
