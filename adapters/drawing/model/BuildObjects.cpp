// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

#include "base/text/Names.h"
#include "model/DictionaryVariables.h"
#include "model/PlotSettingsReader.h"

#include <algorithm>
#include <array>

namespace sm::drawing {

namespace {

Dictionary ReadDictionary(const Model& model, const Slice& slice)
{
    Dictionary dictionary;
    dictionary.slice = slice;
    std::string_view name;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        switch (tag.Code()) {
        case 5:
            dictionary.handle = tag.HandleValue();
            break;
        case 330:
            dictionary.owner = dictionary.owner == 0 ? tag.HandleValue() : dictionary.owner;
            break;
        case 3:
            name = tag.Name();
            break;
        case 350:
        case 360:
            if (!name.empty())
                dictionary.entries.emplace_back(name, tag.HandleValue());
            name = {};
            break;
        default:
            break;
        }
    });
    return dictionary;
}

using ImageKind = ImageDefinition::Kind;

void TakeImageTag(const Model& model, const TagCursor& tag, ImageDefinition& image)
{
    switch (tag.Code()) {
    case 1:
        image.path = model.Text(tag.Name());
        break;
    case 2:
        image.page = model.Text(tag.Name());
        break;
    case 5:
        image.handle = tag.HandleValue();
        break;
    case 10:
        image.pixels.x = tag.Real();
        break;
    case 20:
        image.pixels.y = tag.Real();
        break;
    case 280:
        image.loaded = tag.Integer() != 0 || image.kind != ImageKind::Image;
        break;
    default:
        break;
    }
}

ImageDefinition ReadImage(const Model& model, const Slice& slice, ImageKind kind)
{
    ImageDefinition image;
    image.kind = kind;
    ForEachTag(model, slice, [&](const TagCursor& tag) { TakeImageTag(model, tag, image); });
    return image;
}

/// Group 70 of the objects that hold frame settings (DXF reference, RASTERVARIABLES and WIPEOUTVARIABLES).
void ReadFrame(const Model& model, std::string_view object, std::int32_t& frame)
{
    ForEachObject(model, object, [&](const Slice& slice) {
        ForEachTag(model, slice, [&](const TagCursor& tag) { frame = tag.Code() == 70 ? tag.Integer() : frame; });
    });
}

/// A variable of the dictionary that is 0, 1 or 2.
void ReadFrameVariable(const Model& model, std::string_view name, std::int32_t& frame)
{
    const std::string value = DictionaryVariable(model, name);
    if (value == "0" || value == "1" || value == "2")
        frame = value[0] - '0';
}

void ReadFrames(Model& model)
{
    FrameSettings& frames = model.frames;
    ReadFrame(model, "RASTERVARIABLES", frames.image);
    ReadFrame(model, "WIPEOUTVARIABLES", frames.wipeout);
    ReadFrameVariable(model, "PDFFRAME", frames.underlay);
    frames.clip = model.header.Integer("$XCLIPFRAME", frames.clip);
    std::int32_t all = -1; // 3: each kind has its own
    ReadFrameVariable(model, "FRAME", all);
    if (all >= 0)
        frames = {all, all, all, all};
}

Handle HandleOf(const Model& model, const Slice& slice)
{
    TagCursor tags = model.Tags(slice);
    while (tags.Next() && tags.Code() < 1000)
        if (tags.Code() == 5)
            return tags.HandleValue();
    return 0;
}

void IndexFields(Model& model)
{
    ForEachObject(model, "FIELD",
                  [&](const Slice& slice) { model.source.fields.emplace(HandleOf(model, slice), slice); });
    if (model.source.fields.empty())
        return;
    for (const Dictionary& dictionary : model.dictionaries)
        model.source.dictionaries.emplace(dictionary.handle, dictionary.slice);
}

struct ImageObject {
    const char* name;
    ImageKind kind;
};
constexpr std::array kImageObjects{ImageObject{"IMAGEDEF", ImageKind::Image},
                                   ImageObject{"PDFDEFINITION", ImageKind::Pdf},
                                   ImageObject{"DWFDEFINITION", ImageKind::Dwf},
                                   ImageObject{"DGNDEFINITION", ImageKind::Dgn},
                                   ImageObject{"PDFUNDERLAYDEFINITION", ImageKind::Pdf},
                                   ImageObject{"DWFUNDERLAYDEFINITION", ImageKind::Dwf},
                                   ImageObject{"DGNUNDERLAYDEFINITION", ImageKind::Dgn}};

} // namespace

Handle Dictionary::Find(std::string_view name) const
{
    for (const auto& [entry, entryHandle] : entries)
        if (base::SameName(entry, name))
            return entryHandle;
    return 0;
}

const Dictionary* Model::DictionaryOf(Handle handle) const
{
    const auto found = std::find_if(dictionaries.begin(), dictionaries.end(),
                                    [&](const Dictionary& dictionary) { return dictionary.handle == handle; });
    return handle == 0 || found == dictionaries.end() ? nullptr : &*found;
}

const Dictionary* Model::RootEntry(std::string_view name) const
{
    return hasRoot ? DictionaryOf(dictionaries.front().Find(name)) : nullptr;
}

void BuildDictionaries(Model& model)
{
    for (const NamedSlice& object : model.structure.objects)
        if (object.name == "DICTIONARY" || object.name == "ACDBDICTIONARYWDFLT")
            model.dictionaries.push_back(ReadDictionary(model, object.slice));
    // The named-object dictionary comes first and has no owner; in a damaged file, whichever has no owner.
    const auto root = std::find_if(model.dictionaries.begin(), model.dictionaries.end(),
                                   [](const Dictionary& dictionary) { return dictionary.owner == 0; });
    if (root != model.dictionaries.end())
        std::rotate(model.dictionaries.begin(), root, root + 1);
    model.hasRoot = !model.dictionaries.empty();
}

void BuildObjects(Model& model)
{
    for (const ImageObject& object : kImageObjects)
        ForEachObject(model, object.name,
                      [&](const Slice& slice) { model.images.push_back(ReadImage(model, slice, object.kind)); });
    ReadFrames(model);
    ForEachObject(model, "PLOTSETTINGS", [&](const Slice& slice) {
        PlotSettings settings;
        ForEachTag(model, slice, [&](const TagCursor& tag) { TakePlotSettingsTag(model, tag, settings); });
        model.pageSetups.push_back(std::move(settings));
    });
    IndexFields(model);
}

} // namespace sm::drawing
