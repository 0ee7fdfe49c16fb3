// SPDX-License-Identifier: GPL-3.0-or-later
#include "write/AppIdPatch.h"

#include "base/text/Names.h"
#include "tags/LineScan.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sm::drawing {

namespace {

/// What a walk over the whole file finds for a new entry.
struct TablePlace {
    std::optional<std::uint64_t> tableEnd;   ///< where ENDTAB of APPID begins
    std::optional<std::uint64_t> sectionEnd; ///< where ENDSEC of TABLES begins
    std::optional<TagCursor> seed;           ///< the value of $HANDSEED
    Handle tableHandle = 0;
    Handle highest = 0;
    bool entriesHaveOwners = false;
};

class PlaceFinder {
public:
    explicit PlaceFinder(const Model& model)
        : m_tags(model.source.File(), model.source.format, model.structure.begin, model.source.File().size(), 1)
    {
    }

    TablePlace Find()
    {
        while (m_tags.Next() || (m_tags.Damaged() && m_tags.Resynchronise()))
            if (m_tags.Code() == 0)
                OnName(m_tags.Name());
            else
                OnTag();
        return m_place;
    }

private:
    void OnName(std::string_view name)
    {
        if (name == "ENDTAB" && m_inTable && !m_place.tableEnd)
            m_place.tableEnd = m_tags.Begin();
        if (name == "ENDSEC" && m_section == "TABLES")
            m_place.sectionEnd = m_tags.Begin();
        if (name == "TABLE" || name == "ENDTAB")
            m_inTable = false;
        if (name == "ENDSEC" || m_section == "HEADER") // a header holds no records: one ends it, also without ENDSEC
            m_section = {};
        m_record = name;
    }

    void OnTag()
    {
        const int code = m_tags.Code();
        if (code == 2 && m_record == "SECTION") {
            m_section = m_tags.Name();
            m_record = {}; // header variables hold groups of code 2 as well
        }
        if (code == 2 && m_record == "TABLE")
            m_inTable = m_tags.Name() == "APPID";
        if (m_section == "HEADER") {
            OnHeader();
            return;
        }
        if (m_inTable && code == 5 && m_record == "TABLE")
            m_place.tableHandle = m_tags.HandleValue();
        if (m_inTable && code == 330 && m_record == "APPID")
            m_place.entriesHaveOwners = true;
        if (code == 5 || code == 105)
            m_place.highest = std::max(m_place.highest, m_tags.HandleValue());
    }

    void OnHeader()
    {
        if (m_tags.Code() == 9)
            m_variable = m_tags.Name();
        else if (m_variable == "$HANDSEED" && m_tags.Code() == 5)
            m_place.seed = m_tags;
    }

    TagCursor m_tags;
    TablePlace m_place;
    std::string_view m_section, m_record, m_variable;
    bool m_inTable = false;
};

std::string SpellHandle(Handle handle)
{
    std::array<char, 20> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), handle, 16);
    std::string text(buffer.data(), result.ptr);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

void WriteEntry(TagWriter& writer, const TablePlace& place, const std::string& name, Handle handle)
{
    writer.Write(0, "APPID");
    writer.Write(5, SpellHandle(handle));
    if (place.entriesHaveOwners && place.tableHandle != 0)
        writer.Write(330, SpellHandle(place.tableHandle));
    writer.Write(100, "AcDbSymbolTableRecord");
    writer.Write(100, "AcDbRegAppTableRecord");
    writer.Write(2, name);
    writer.Write(70, "0");
}

/// The value of $HANDSEED gives way to the new one; a value that is large enough stays.
void RaiseSeed(const Model& model, const TablePlace& place, Handle next, std::vector<Edit>& edits)
{
    if (!place.seed || place.seed->HandleValue() >= next)
        return;
    std::uint64_t length = place.seed->Text().size();
    if (model.source.format != TagFormat::Ascii)
        length = place.seed->End() - 1 - place.seed->ValueBegin();
    edits.push_back({place.seed->ValueBegin(), length, SpellHandle(next)});
}

bool IsRegistered(const Model& model, const std::string& application)
{
    const std::string folded = base::FoldCase(application);
    return std::any_of(model.applications.begin(), model.applications.end(),
                       [&](const std::string& name) { return base::FoldCase(name) == folded; });
}

bool HasPaddedIntegers(const Model& model)
{
    for (const NamedSlice& entry : model.structure.tableEntries) {
        TagCursor tags = model.Tags(entry.slice);
        while (tags.Next())
            if (tags.Code() == 70)
                return tags.Text().starts_with(' ');
    }
    return false;
}

} // namespace

TagStyle StyleOf(const Model& model)
{
    TagStyle style;
    style.format = model.source.format;
    if (style.format != TagFormat::Ascii)
        return style;
    const std::string_view file = model.source.File();
    const char* const at = file.data() + model.dictionaries.front().slice.begin;
    const char* const end = file.data() + file.size();
    const char* const lineEnd = FindLineEnd(at, end);
    const char* const next = SkipLineEnd(lineEnd, end);
    if (next > lineEnd)
        style.lineEnd.assign(lineEnd, next);
    style.paddedCodes = at < end && *at == ' ';
    style.paddedIntegers = HasPaddedIntegers(model);
    return style;
}

void RegisterApplications(const Model& model, const std::vector<std::string>& applications, std::vector<Edit>& edits)
{
    std::vector<std::string> missing;
    std::copy_if(applications.begin(), applications.end(), std::back_inserter(missing),
                 [&](const std::string& name) { return !IsRegistered(model, name); });
    if (missing.empty())
        return;
    const TablePlace place = PlaceFinder(model).Find();
    if (!place.tableEnd && !place.sectionEnd)
        throw DrawingError(model.path + ": the drawing has no table of applications to register the record in; " +
                           "save it as DXF of release 2000 or later");
    Handle next = std::max(place.highest + 1, place.seed ? place.seed->HandleValue() : 0);
    TagWriter writer(StyleOf(model), *model.source.text);
    if (!place.tableEnd) {
        writer.Write(0, "TABLE");
        writer.Write(2, "APPID");
        writer.Write(5, SpellHandle(next++));
        writer.Write(100, "AcDbSymbolTable");
        writer.Write(70, std::to_string(missing.size()));
    }
    for (const std::string& name : missing)
        WriteEntry(writer, place, name, next++);
    if (!place.tableEnd)
        writer.Write(0, "ENDTAB");
    edits.push_back({place.tableEnd.value_or(place.sectionEnd.value_or(0)), 0, writer.Bytes()});
    RaiseSeed(model, place, next, edits);
}

} // namespace sm::drawing
