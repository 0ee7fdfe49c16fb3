// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/ObjectLinks.h"

namespace sm::drawing {

namespace {

int HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

Handle OwnHandle(const Drawing::Source& source, const NamedSlice& object, int code)
{
    if (object.slice.begin >= LateTags::kFirst && source.late != nullptr)
        return source.late->HandleOf(object.slice.begin);
    TagCursor tags = source.TagsOf(object.slice);
    while (tags.Next() && tags.Code() < 1000)
        if (tags.Code() == code)
            return tags.HandleValue();
    return 0;
}

/// Records of the data section are known by the entity they belong to (group 320 of ACDSRECORD).
bool IsDataRecord(const NamedSlice& object)
{
    return object.name == "ACDSRECORD";
}

} // namespace

void Drawing::Source::IndexObjects() const
{
    if (objectList == nullptr)
        return;
    constexpr int kHandle = 5, kEntity = 320;
    for (const NamedSlice& object : *objectList) {
        const bool data = IsDataRecord(object);
        m_hasContexts = m_hasContexts || object.name.ends_with("CONTEXTDATA_CLASS");
        m_hasFilters = m_hasFilters || object.name == "SPATIAL_FILTER";
        if (const Handle handle = OwnHandle(*this, object, data ? kEntity : kHandle); handle != 0)
            (data ? m_dataRecords : m_objects)[handle].push_back(object);
    }
}

const NamedSlice* Drawing::Source::FindObject(Handle handle) const
{
    std::call_once(m_objectsOnce, [this] { IndexObjects(); });
    const auto found = m_objects.find(handle);
    return handle == 0 || found == m_objects.end() ? nullptr : &found->second.front();
}

bool Drawing::Source::HasSpatialFilters() const
{
    std::call_once(m_objectsOnce, [this] { IndexObjects(); });
    return m_hasFilters;
}

bool Drawing::Source::HasContextData() const
{
    std::call_once(m_objectsOnce, [this] { IndexObjects(); });
    return m_hasContexts;
}

const std::vector<NamedSlice>& Drawing::Source::DataRecordsOf(Handle entity) const
{
    static const std::vector<NamedSlice> kNone;
    std::call_once(m_objectsOnce, [this] { IndexObjects(); });
    const auto found = m_dataRecords.find(entity);
    return found == m_dataRecords.end() ? kNone : found->second;
}

Handle ExtensionDictionaryOf(TagCursor tags)
{
    bool mine = false;
    while (tags.Next()) {
        if (tags.Code() == 0 || tags.Code() == 100)
            return 0; // it stands before the first subclass
        if (tags.Code() == 102)
            mine = tags.Name() == "{ACAD_XDICTIONARY";
        else if (mine && tags.Code() == 360)
            return tags.HandleValue();
    }
    return 0;
}

Handle DictionaryEntry(const Drawing::Source& source, Handle dictionary, std::string_view name)
{
    const NamedSlice* const object = source.FindObject(dictionary);
    return object == nullptr || object->name != "DICTIONARY" ? 0 : EntryIn(source, *object, name);
}

Handle EntryIn(const Drawing::Source& source, const NamedSlice& dictionary, std::string_view name)
{
    Handle found = 0;
    bool wanted = false;
    ForEachObjectTag(source, dictionary, [&](const TagCursor& tag) {
        if (tag.Code() == 3)
            wanted = tag.Name() == name;
        else if ((tag.Code() == 350 || tag.Code() == 360) && wanted && found == 0)
            found = tag.HandleValue();
    });
    return found;
}

void AppendChunk(const TagCursor& tag, std::string& bytes)
{
    if (tag.Type() == ValueType::Chunk) {
        bytes += tag.Text();
        return;
    }
    const std::string_view text = tag.Name();
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        const int high = HexDigit(text[i]), low = HexDigit(text[i + 1]);
        if (high < 0 || low < 0)
            return;
        bytes.push_back(static_cast<char>(high << 4 | low));
    }
}

} // namespace sm::drawing
