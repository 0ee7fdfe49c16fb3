#include "drawing/Annotation.h"
#include "tags/ObjectLinks.h"

namespace sm::drawing {

namespace {

/// The dictionary of variables; null when there is none.
const NamedSlice* VariablesOf(const Drawing::Source& source)
{
    if (source.objectList == nullptr)
        return nullptr;
    for (const NamedSlice& object : *source.objectList)
        if (object.name == "DICTIONARY" && EntryIn(source, object, "CANNOSCALE") != 0)
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

/// SCALE: 300 its name, 140 paper units, 141 drawing units.
double UnitsOf(const Drawing::Source& source, std::string_view scale)
{
    for (const NamedSlice& object : *source.objectList) {
        if (object.name != "SCALE")
            continue;
        double paper = 1, drawing = 1;
        bool wanted = false;
        ForEachObjectTag(source, object, [&](const TagCursor& tag) {
            wanted = wanted || (tag.Code() == 300 && tag.Name() == scale);
            paper = tag.Code() == 140 ? tag.Real() : paper;
            drawing = tag.Code() == 141 ? tag.Real() : drawing;
        });
        if (wanted)
            return paper > 0 && drawing > 0 && std::isfinite(drawing / paper) ? drawing / paper : 1;
    }
    return 1;
}

} // namespace

double ModelLinetypeUnit(const Drawing& drawing)
{
    const Drawing::Source& source = drawing.Tags();
    const NamedSlice* const variables = VariablesOf(source);
    if (variables == nullptr || ValueOf(source, EntryIn(source, *variables, "MSLTSCALE")) != "1")
        return 1;
    return UnitsOf(source, ValueOf(source, EntryIn(source, *variables, "CANNOSCALE")));
}

} // namespace sm::drawing
