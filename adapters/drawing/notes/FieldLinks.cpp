// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/FieldLinks.h"

#include "entities/EntityTags.h"

#include <algorithm>

namespace sm::drawing {

namespace {

/// More objects than this hang on no text; a longer chain goes round in circles.
constexpr std::size_t kMostObjects = 256;

/// What one FIELD holds (DXF reference, FIELD: 1 evaluator, 2 and 3 code, 360 child fields).
struct Field {
    std::string code;
    std::vector<Handle> children;
    std::vector<Hyperlink> links;
};

void TakeFieldTag(const Drawing::Source& source, const TagCursor& tag, Field& field)
{
    std::string text;
    switch (tag.Code()) {
    case 2:
    case 3:
        DecodeText(source, tag.Text(), text);
        field.code += text;
        break;
    case 360:
        field.children.push_back(tag.HandleValue());
        break;
    default:
        break;
    }
}

Field ReadField(const Drawing::Source& source, const Slice& slice)
{
    Field field;
    LinkReader reader(source, field.links);
    TagCursor tags = source.TagsOf(slice);
    bool mine = false, inBraces = false;
    while (tags.Next()) {
        if (tags.Code() == 1001)
            mine = tags.Name() == kLinkApplication;
        else if (tags.Code() > 1001 || tags.Code() == 1000) {
            if (mine)
                reader.Take(tags);
        } else if (tags.Code() == 102)
            inBraces = tags.Name().starts_with('{');
        else if (!inBraces)
            TakeFieldTag(source, tags, field);
    }
    return field;
}

/// The first text in quotes behind `\href`; empty when there is none.
std::string AddressIn(const std::string& code)
{
    const auto word = code.find("\\href");
    const auto open = word == std::string::npos ? word : code.find('"', word);
    const auto close = open == std::string::npos ? open : code.find('"', open + 1);
    return close == std::string::npos ? std::string() : code.substr(open + 1, close - open - 1);
}

/// The values of a dictionary's entries; with a name, of that entry alone.
std::vector<Handle> EntriesOf(const Drawing::Source& source, const Slice& slice, std::string_view wanted = {})
{
    std::vector<Handle> handles;
    std::string_view name;
    TagCursor tags = source.TagsOf(slice);
    while (tags.Next() && tags.Code() < 1000) {
        if (tags.Code() == 3)
            name = tags.Name();
        else if ((tags.Code() == 350 || tags.Code() == 360) && !name.empty()) {
            if (wanted.empty() || name == wanted)
                handles.push_back(tags.HandleValue());
            name = {};
        }
    }
    return handles;
}

class FieldWalk {
public:
    FieldWalk(const Drawing::Source& source, std::vector<Hyperlink>& links) : m_source(source), m_links(links) {}

    /// A field, or a dictionary of fields.
    void Visit(Handle handle)
    {
        const bool again = std::find(m_seen.begin(), m_seen.end(), handle) != m_seen.end();
        if (again || m_seen.size() >= kMostObjects)
            return;
        m_seen.push_back(handle);
        if (const auto field = m_source.fields.find(handle); field != m_source.fields.end())
            TakeField(ReadField(m_source, field->second));
        else if (const auto list = m_source.dictionaries.find(handle); list != m_source.dictionaries.end())
            VisitAll(EntriesOf(m_source, list->second));
    }

private:
    void VisitAll(const std::vector<Handle>& handles)
    {
        for (const Handle handle : handles)
            Visit(handle);
    }

    void TakeField(const Field& field)
    {
        m_links.insert(m_links.end(), field.links.begin(), field.links.end());
        if (field.links.empty())
            if (std::string address = AddressIn(field.code); !address.empty())
                m_links.push_back({std::move(address), {}, {}});
        VisitAll(field.children);
    }

    const Drawing::Source& m_source;
    std::vector<Hyperlink>& m_links;
    std::vector<Handle> m_seen;
};

} // namespace

void LinkReader::Take(const TagCursor& tags)
{
    if (tags.Code() == 1002)
        m_depth += tags.Name() == "{" ? 1 : -1;
    else if (tags.Code() == 1000)
        TakeText(tags.Text());
}

void LinkReader::TakeText(std::string_view raw)
{
    if (m_depth <= 0) {
        m_depth = 0;
        m_texts = 0;
        m_links.emplace_back();
        DecodeText(m_source, raw, m_links.back().url);
    } else if (m_depth == 1 && !m_links.empty()) {
        ++m_texts;
        if (m_texts <= 2)
            DecodeText(m_source, raw, m_texts == 1 ? m_links.back().description : m_links.back().subLocation);
    }
}

void ReadFieldLinks(const Drawing::Source& source, Handle extensionDictionary, std::vector<Hyperlink>& links)
{
    const auto extension = source.dictionaries.find(extensionDictionary);
    if (extension == source.dictionaries.end())
        return;
    FieldWalk walk(source, links);
    for (const Handle handle : EntriesOf(source, extension->second, "ACAD_FIELD"))
        walk.Visit(handle);
}

} // namespace sm::drawing
