// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DictionaryVariables.h"

namespace sm::drawing {

std::string DictionaryVariable(const Model& model, std::string_view name)
{
    const Dictionary* const variables = model.RootEntry("AcDbVariableDictionary");
    const Handle wanted = variables == nullptr ? 0 : variables->Find(name);
    if (wanted == 0)
        return {};
    std::string found;
    ForEachObject(model, "DICTIONARYVAR", [&](const Slice& slice) {
        Handle handle = 0;
        std::string value;
        ForEachTag(model, slice, [&](const TagCursor& tag) {
            if (tag.Code() == 5)
                handle = tag.HandleValue();
            else if (tag.Code() == 1)
                value = model.Text(tag.Name());
        });
        if (handle == wanted)
            found = value;
    });
    return found;
}

} // namespace sm::drawing
