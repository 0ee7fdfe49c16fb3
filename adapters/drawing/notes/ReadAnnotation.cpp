// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/Annotation.h"
#include "tags/ObjectLinks.h"

namespace sm::drawing {

namespace {

/// The dictionary of variables that holds this one; null when there is none.
const NamedSlice* VariablesWith(const Drawing::Source& source, std::string_view name)
{
    if (source.objectList == nullptr)
        return nullptr;
    for (const NamedSlice& object : *source.objectList)
        if (object.name == "DICTIONARY" && EntryIn(source, object, name) != 0)
            return &object;
    return nullptr;
}

/// Group 1 of a DICTIONARYVAR; empty when there is none.
std::string_view ValueOf(const Drawing::Source& source, Handle variable)
{
    const NamedSlice* const object = source.FindObject(variable);
    std::string_view value;
    if (object != nullptr && object->name == "DICTIONARYVAR")
        ForEachObjectTag(source, *object, [&](const TagCursor& tag) { value = tag.Code() == 1 ? tag.Name() : value; });
    return value;
}

/// A variable of the drawing; empty when the file doesn't hold it.
std::string_view VariableOf(const Drawing::Source& source, std::string_view name)
{
    const NamedSlice* const variables = VariablesWith(source, name);
    return variables == nullptr ? std::string_view{} : ValueOf(source, EntryIn(source, *variables, name));
}

/// SCALE: 300 its name, 140 paper units, 141 drawing units.
struct Scale {
    Handle handle = 0;
    double paper = 1, drawing = 1;
};

Scale FindScale(const Drawing::Source& source, std::string_view name)
{
    if (source.objectList == nullptr || name.empty())
        return {};
    for (const NamedSlice& object : *source.objectList) {
        if (object.name != "SCALE")
            continue;
        Scale scale;
        bool wanted = false;
        ForEachObjectTag(source, object, [&](const TagCursor& tag) {
            wanted = wanted || (tag.Code() == 300 && tag.Name() == name);
            scale.handle = tag.Code() == 5 ? tag.HandleValue() : scale.handle;
            scale.paper = tag.Code() == 140 ? tag.Real() : scale.paper;
            scale.drawing = tag.Code() == 141 ? tag.Real() : scale.drawing;
        });
        if (wanted)
            return scale;
    }
    return {};
}

} // namespace

Handle ModelAnnotationScale(const Drawing& drawing)
{
    const Drawing::Source& source = drawing.Tags();
    return source.HasContextData() ? FindScale(source, VariableOf(source, "CANNOSCALE")).handle : 0;
}

std::optional<bool> ShowsAllAnnotations(const Drawing& drawing)
{
    const std::string_view value = VariableOf(drawing.Tags(), "ANNOALLVISIBLE");
    return value.empty() ? std::nullopt : std::optional(value != "0");
}

double ModelLinetypeUnit(const Drawing& drawing)
{
    const Drawing::Source& source = drawing.Tags();
    const std::string_view name = VariableOf(source, "CANNOSCALE");
    if (name.empty() || VariableOf(source, "MSLTSCALE") != "1")
        return 1;
    const Scale scale = FindScale(source, name);
    const double unit = scale.drawing / scale.paper;
    return scale.paper > 0 && scale.drawing > 0 && std::isfinite(unit) ? unit : 1;
}

} // namespace sm::drawing
