// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/TagSink.h"

#include "drawing/EntityKinds.h"

#include <algorithm>
#include <array>
#include <limits>

namespace sm::drawing::dwg {

void TagSink::Close()
{
    if (m_open == Open::Entity)
        CloseEntity();
    else if (m_open == Open::BlockHeader)
        m_found.blocks.back().header.length = m_bytes.size() - m_found.blocks.back().header.begin;
    else if (m_open == Open::Entry)
        m_list->back().slice.length = m_bytes.size() - m_list->back().slice.begin;
    m_open = Open::Nothing;
}

void TagSink::CloseEntity()
{
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    m_entity.length = static_cast<std::uint32_t>(std::min(m_bytes.size() - m_entity.begin, kMost));
    ListEntity();
}

void TagSink::ListEntity()
{
    if (m_inBlock)
        m_found.blockEntities.push_back(m_entity);
    else if (m_entity.paperSpace)
        m_found.paperEntities.push_back(m_entity);
    else
        m_found.modelEntities.push_back(m_entity);
}

bool TagSink::Abandon()
{
    if (m_open == Open::Entity) {
        m_bytes.CutTo(m_entity.begin);
    } else if (m_open == Open::Entry) {
        m_bytes.CutTo(m_list->back().slice.begin);
        m_list->pop_back();
    } else if (m_open == Open::BlockHeader) {
        m_bytes.CutTo(m_found.blocks.back().header.begin);
        m_found.blocks.pop_back();
        m_inBlock = false;
    } else {
        return false;
    }
    m_open = Open::Nothing;
    return true;
}

void TagSink::OpenSlice(std::vector<NamedSlice>& list, std::string_view name)
{
    Close();
    list.push_back({name, Here()});
    m_list = &list;
    m_open = Open::Entry;
}

void TagSink::Variable(std::string_view name)
{
    constexpr std::size_t kUsual = 320;
    if (m_found.variables.empty())
        m_found.variables.reserve(kUsual);
    OpenSlice(m_found.variables, name);
}

void TagSink::TableEntry(std::string_view name)
{
    OpenSlice(m_found.tableEntries, name);
}

void TagSink::Object(std::string_view name)
{
    OpenSlice(m_found.objects, name);
    m_found.hasObjects = true;
}

void TagSink::LateObject(std::string_view name, std::uint64_t begin)
{
    Close();
    m_found.objects.push_back({name, {begin, 0, m_found.tags + 1}});
    m_found.hasObjects = true;
}

void TagSink::BeginBlock()
{
    EndBlock();
    m_found.blocks.push_back({Here(), m_found.blockEntities.size(), 0});
    m_open = Open::BlockHeader;
    m_inBlock = true;
}

void TagSink::EndBlock()
{
    Close();
    if (m_inBlock)
        m_found.blocks.back().count = m_found.blockEntities.size() - m_found.blocks.back().first;
    m_inBlock = false;
}

void TagSink::Entity(std::string_view name)
{
    Close();
    OpenEntity(name);
    m_open = Open::Entity;
}

void TagSink::LateEntity(std::string_view name, std::uint64_t begin, bool inPaper)
{
    Close();
    OpenEntity(name);
    m_entity.begin = begin;
    m_entity.paperSpace = inPaper;
    ListEntity();
}

std::string_view TagSink::TakeOpen()
{
    std::uint64_t begin = m_entity.begin;
    if (m_open == Open::Entry) {
        begin = m_list->back().slice.begin;
        m_list->pop_back();
    }
    m_open = Open::Nothing;
    return std::string_view(m_bytes).substr(begin);
}

void TagSink::OpenEntity(std::string_view name)
{
    auto known = m_kinds.find(name);
    if (known == m_kinds.end()) {
        const EntityKind kind = KindOf(name);
        const bool own = kind == EntityKind::Unknown || name != KindName(kind);
        const std::string_view kept = m_names.emplace_back(name);
        known = m_kinds.emplace(kept, std::pair(kind, own ? IndexOfUnknown(kept) : std::uint16_t{0})).first;
    }
    m_entity = {};
    m_entity.begin = m_bytes.size();
    m_entity.line = m_found.tags + 1;
    m_entity.kind = known->second.first;
    m_entity.nameIndex = known->second.second;
}

std::uint16_t TagSink::IndexOfUnknown(std::string_view name)
{
    // Index 0 means "no name of its own"; more invented names than fit share the last one.
    if (m_found.unknownNames.empty())
        m_found.unknownNames.emplace_back();
    if (m_found.unknownNames.size() > std::numeric_limits<std::uint16_t>::max())
        return std::numeric_limits<std::uint16_t>::max();
    m_found.unknownNames.push_back(name);
    return static_cast<std::uint16_t>(m_found.unknownNames.size() - 1);
}

void TagSink::Text(int code, std::string_view text)
{
    ++m_found.tags;
    text = text.substr(0, text.find('\0'));
    const auto number = static_cast<std::int16_t>(code);
    char* const to = m_bytes.Grow(sizeof number + text.size() + 1);
    std::memcpy(to, &number, sizeof number);
    if (!text.empty())
        std::memcpy(to + sizeof number, text.data(), text.size());
    to[sizeof number + text.size()] = '\0';
}

void TagSink::Real(int code, double value)
{
    if (BinaryTypeOf(code).type != ValueType::Real) {
        Integer(code, static_cast<std::int64_t>(std::clamp(value, -9e18, 9e18)));
        return;
    }
    Append(code, value);
}

void TagSink::Integer(int code, std::int64_t value)
{
    const BinaryType type = BinaryTypeOf(code);
    if (type.type == ValueType::Real) {
        Real(code, static_cast<double>(value));
        return;
    }
    if (type.type != ValueType::Integer) {
        Text(code, std::to_string(value));
        return;
    }
    if (type.width == 1)
        Append(code, static_cast<std::uint8_t>(value));
    else if (type.width == 2)
        Append(code, static_cast<std::int16_t>(value));
    else if (type.width == 4)
        Append(code, static_cast<std::int32_t>(value));
    else
        Append(code, value);
}

void TagSink::HandleTag(int code, Handle handle)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::array<char, 19> tag{};
    std::size_t at = tag.size() - 1; // before the NUL
    do {
        tag[--at] = kDigits[handle & 15];
        handle >>= 4;
    } while (handle != 0);
    const auto number = static_cast<std::int16_t>(code);
    at -= sizeof number;
    std::memcpy(tag.data() + at, &number, sizeof number);
    ++m_found.tags;
    m_bytes.Append({tag.data() + at, tag.size() - at});
}

void TagSink::Chunks(int code, std::string_view bytes)
{
    constexpr std::size_t kMost = 255;
    for (std::size_t at = 0; at < bytes.size(); at += kMost) {
        const std::string_view chunk = bytes.substr(at, kMost);
        Append(code, static_cast<std::uint8_t>(chunk.size()));
        m_bytes.Append(chunk);
    }
}

void TagSink::Points(int code, std::span<const double> values)
{
    constexpr std::size_t kCode = sizeof(std::int16_t), kTag = kCode + sizeof(double);
    char* to = m_bytes.Grow(kTag * values.size());
    for (const double value : values) {
        const auto number = static_cast<std::int16_t>(code);
        std::memcpy(to, &number, kCode);
        std::memcpy(to + kCode, &value, sizeof value);
        to += kTag;
        code += 10;
    }
    m_found.tags += values.size();
}

void TagSink::Point(int code, const Vec2& point)
{
    Points(code, std::array{point.x, point.y});
}

void TagSink::Point(int code, const Vec3& point)
{
    Points(code, std::array{point.x, point.y, point.z});
}

std::string TagSink::Take(std::size_t from)
{
    std::string tags(std::string_view(m_bytes).substr(from));
    m_bytes.CutTo(from);
    return tags;
}

DecodedTags TagSink::Finish()
{
    EndBlock();
    DecodedTags decoded{std::move(m_bytes), std::move(m_found), std::move(m_names)};
    *this = TagSink();
    return decoded;
}

} // namespace sm::drawing::dwg
