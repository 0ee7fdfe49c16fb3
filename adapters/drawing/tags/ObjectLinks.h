// SPDX-License-Identifier: GPL-3.0-or-later
// From entities and table entries to the objects that hang on them. For this room only.
#pragma once

#include "tags/Source.h"

#include <functional>

namespace sm::drawing {

/// The extension dictionary named by a record's tags (group 360 between 102 "{ACAD_XDICTIONARY" and "}"); 0: none.
Handle ExtensionDictionaryOf(TagCursor tags);

/// The value of a dictionary's entry; 0 when there is none, or no such dictionary.
Handle DictionaryEntry(const Drawing::Source& source, Handle dictionary, std::string_view name);

/// The value of an entry of `dictionary`; 0 when there is none.
Handle EntryIn(const Drawing::Source& source, const NamedSlice& dictionary, std::string_view name);

/// Calls `take(tag)` for each tag of an object, groups in braces included, up to its extended data.
template <class Take> void ForEachObjectTag(const Drawing::Source& source, const NamedSlice& object, Take take)
{
    TagCursor tags = source.TagsOf(object.slice);
    while (tags.Next() && tags.Code() < 1000)
        take(static_cast<const TagCursor&>(tags));
}

/// Appends the bytes of a chunk (groups 310 to 319): hexadecimal digits in ASCII files, bytes in binary ones.
void AppendChunk(const TagCursor& tag, std::string& bytes);

} // namespace sm::drawing
