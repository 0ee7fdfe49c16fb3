// SPDX-License-Identifier: GPL-3.0-or-later
// Lays a drawing down as typed tags in memory, in the binary form with two-byte codes, and notes where each entry
// stands: what StructureScan would find in a file.
#pragma once

#include "base/Geometry.h"
#include "dwg/TagBytes.h"
#include "tags/Structure.h"

#include <cstring>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace sm::drawing::dwg {

/// The tags, and where everything stands in them. Names in `structure` are kept by `names` or live for ever.
struct DecodedTags {
    TagBytes bytes;
    Structure structure;
    std::deque<std::string> names;
};

/// Entries are opened one after the other; opening one closes the one before. Names of entries must be literals, but
/// for those of entities.
class TagSink {
public:
    /// Room for that many bytes is taken at once; nothing of it is touched before it is used.
    void Reserve(std::uint64_t bytes) { m_bytes.Reserve(bytes); }

    void Variable(std::string_view name);
    void TableEntry(std::string_view name);
    void Object(std::string_view name);
    /// An object whose tags are made later: `begin` stands for them. Ends at once.
    void LateObject(std::string_view name, std::uint64_t begin);
    /// BLOCK: its own tags follow, then its entities up to EndBlock.
    void BeginBlock();
    void EndBlock();
    /// An entity of the open block, of model space, or (after PaperSpace) of the active paper space.
    void Entity(std::string_view name);
    /// An entity whose tags are made later: `begin` stands for them. Ends at once.
    void LateEntity(std::string_view name, std::uint64_t begin, bool inPaper);
    /// The tags of the open entity or object, which ends unlisted; until Forget is called.
    std::string_view TakeOpen();
    /// Every tag so far.
    void Forget()
    {
        m_bytes.CutTo(0);
        m_open = Open::Nothing;
    }
    void PaperSpace() { m_entity.paperSpace = true; }
    /// VERTEX, ATTRIB or SEQEND of the open entity.
    void Member(std::string_view name) { Text(0, name); }
    /// Ends the open entry.
    void Close();
    /// Takes the open entry back; true when there was one.
    bool Abandon();

    /// Up to a NUL, if there is one.
    void Text(int code, std::string_view text);
    /// As the code's type wants it: DXF reference, "group code value types".
    void Real(int code, double value);
    void Integer(int code, std::int64_t value);
    void HandleTag(int code, Handle handle);
    /// As tags of at most 255 bytes.
    void Chunks(int code, std::string_view bytes);
    /// A point whose x has that code: y +10, z +20. The codes are those of reals.
    void Point(int code, const Vec2& point);
    void Point(int code, const Vec3& point);

    /// Cuts off what was written since the sink had that size; Put appends it again.
    std::string Take(std::size_t from);
    void Put(std::string_view tags) { m_bytes.Append(tags); }

    [[nodiscard]] std::size_t Size() const { return m_bytes.size(); }
    /// Ends everything. The sink is empty afterwards.
    DecodedTags Finish();

private:
    enum class Open : std::uint8_t { Nothing, Entry, BlockHeader, Entity };

    void OpenSlice(std::vector<NamedSlice>& list, std::string_view name);
    void OpenEntity(std::string_view name);
    void ListEntity();
    void CloseEntity();
    std::uint16_t IndexOfUnknown(std::string_view name);
    [[nodiscard]] Slice Here() const { return {m_bytes.size(), 0, m_found.tags + 1}; }
    void Points(int code, std::span<const double> values);
    /// A code and its value in one step.
    template <class Value> void Append(int code, Value value)
    {
        ++m_found.tags;
        const auto number = static_cast<std::int16_t>(code);
        char* const tag = m_bytes.Grow(sizeof number + sizeof value);
        std::memcpy(tag, &number, sizeof number);
        std::memcpy(tag + sizeof number, &value, sizeof value);
    }

    TagBytes m_bytes;
    Structure m_found;
    std::deque<std::string> m_names;
    std::unordered_map<std::string_view, std::uint16_t> m_unknown;
    std::unordered_map<std::string_view, std::pair<EntityKind, std::uint16_t>> m_kinds;
    EntityRecord m_entity;
    std::vector<NamedSlice>* m_list = nullptr;
    Open m_open = Open::Nothing;
    bool m_inBlock = false;
};

} // namespace sm::drawing::dwg
