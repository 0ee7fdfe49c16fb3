// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"
#include "tags/ObjectLinks.h"

namespace sm::drawing {

namespace {

constexpr std::string_view kOverridePrefix = "ADSK_XREC_LAYER_";

/// A colour as one number: the highest byte tells whether a true colour (C2) or an index (C3) follows.
void TakeColor(LayerOverride& own, std::int64_t value)
{
    const std::int64_t kind = value >> 24 & 0xFF;
    if (kind == 0xC2)
        own.trueColor = static_cast<std::uint32_t>(value & 0xFFFFFF);
    else if (kind == 0xC3 && (value & 0xFF) != 0)
        own.color = static_cast<std::int16_t>(value & 0xFF);
}

void TakeTag(const Model& model, const TagCursor& tag, LayerOverride& own)
{
    switch (tag.Code()) {
    case 420:
        TakeColor(own, tag.Long());
        break;
    case 91:
        own.lineweight = static_cast<std::int16_t>(tag.Integer());
        break;
    case 440:
        if ((tag.Long() >> 24 & 0xFF) == 2)
            own.transparency = static_cast<std::uint8_t>(tag.Long() & 0xFF);
        break;
    case 343:
        for (std::uint32_t i = 0; i < model.linetypes.size(); ++i)
            if (model.linetypes[i].handle == tag.HandleValue())
                own.linetype = i;
        break;
    default:
        break;
    }
}

/// One XRECORD holds one property of the layer in all viewports: 335 the viewport, then its value.
void TakeRecord(const Model& model, const NamedSlice& object, std::vector<LayerOverride>& overrides)
{
    LayerOverride* own = nullptr;
    ForEachObjectTag(model.source, object, [&](const TagCursor& tag) {
        if (tag.Code() == 335) {
            const Handle viewport = tag.HandleValue();
            const auto known = std::find_if(overrides.begin(), overrides.end(),
                                            [&](const auto& one) { return one.viewport == viewport; });
            const bool isNew = known == overrides.end();
            own = isNew ? &overrides.emplace_back() : &*known;
            own->viewport = viewport;
        } else if (own != nullptr)
            TakeTag(model, tag, *own);
    });
}

bool HoldsOverrides(const Dictionary& dictionary)
{
    return std::any_of(dictionary.entries.begin(), dictionary.entries.end(),
                       [](const auto& entry) { return entry.first.starts_with(kOverridePrefix); });
}

} // namespace

void BuildLayerOverrides(Model& model)
{
    std::unordered_map<Handle, const Dictionary*> extensions;
    for (const Dictionary& dictionary : model.dictionaries)
        if (HoldsOverrides(dictionary))
            extensions.emplace(dictionary.handle, &dictionary);
    if (extensions.empty())
        return;
    ForEachEntry(model, "LAYER", [&](const Slice& slice) {
        const auto extension = extensions.find(ExtensionDictionaryOf(model.Tags(slice)));
        std::string_view name;
        ForEachTag(model, slice, [&](const TagCursor& tag) { name = tag.Code() == 2 ? tag.Name() : name; });
        const auto layer = model.source.layers.Find(name, *model.source.text);
        if (extension == extensions.end() || !layer || *layer >= model.layers.size())
            return;
        for (const auto& [entry, handle] : extension->second->entries)
            if (const NamedSlice* object = model.source.FindObject(handle);
                object != nullptr && entry.starts_with(kOverridePrefix))
                TakeRecord(model, *object, model.layers[*layer].overrides);
    });
}

} // namespace sm::drawing
