// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagCursor.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace sm::drawing {

namespace {

bool IsNameCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// Could `text` be the name of a record: capitals, digits and underscores, three at least?
bool IsRecordName(std::string_view text)
{
    return text.size() >= 3 && text.size() <= 64 && std::all_of(text.begin(), text.end(), IsNameCharacter);
}

} // namespace

TagCursor::TagCursor(std::string_view file, TagFormat format, std::uint64_t begin, std::uint64_t length,
                     std::uint32_t line)
    : m_file(file.data()), m_line(line - 1), m_format(format)
{
    const std::uint64_t from = std::min<std::uint64_t>(begin, file.size());
    m_at = m_file + from;
    m_end = m_at + std::min<std::uint64_t>(length, file.size() - from);
    m_tag = m_value = m_at;
}

bool TagCursor::Damage()
{
    m_damaged = true;
    return false;
}

bool TagCursor::Cut()
{
    m_cutOff = true;
    m_at = m_end;
    return false;
}

bool TagCursor::ReadAnyCode()
{
    const char* at = m_at;
    while (at < m_end && (*at == ' ' || *at == '\t'))
        ++at;
    const bool negative = at < m_end && *at == '-';
    at += negative;
    const char* const digits = at;
    int code = 0;
    while (at < m_end && *at >= '0' && *at <= '9' && at - digits < 6)
        code = code * 10 + (*at++ - '0');
    const bool found = at > digits;
    while (at < m_end && (*at == ' ' || *at == '\t'))
        ++at;
    if (!found || (at < m_end && *at != '\n' && *at != '\r'))
        return false;
    m_code = negative ? -code : code;
    m_value = SkipLineEnd(at, m_end);
    return true;
}

double TagCursor::OtherReal() const
{
    if (m_type == ValueType::Chunk)
        return ParseReal(m_text);
    return m_type == ValueType::Real ? m_real : static_cast<double>(m_integer);
}

std::int64_t TagCursor::Long() const
{
    if (m_type == ValueType::Integer)
        return m_integer;
    if (m_type == ValueType::Real)
        return std::abs(m_real) < 9e18 ? static_cast<std::int64_t>(m_real) : 0;
    bool sound = true;
    const std::int64_t value = ParseInteger(m_text, sound);
    if (!sound)
        TellUnread();
    return value;
}

void TagCursor::TellUnread() const
{
    if (m_unread != nullptr && m_format == TagFormat::Ascii)
        m_unread->Add(m_line);
}

std::int32_t TagCursor::Integer() const
{
    constexpr std::int64_t kLow = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(Long(), kLow, kHigh));
}

bool TagCursor::Resynchronise()
{
    m_damaged = false;
    return m_format == TagFormat::Ascii ? SynchroniseAscii() : SynchroniseBinary();
}

bool TagCursor::SynchroniseAscii()
{
    while (m_at < m_end) {
        const char* const lineEnd = FindLineEnd(m_at, m_end);
        m_at = SkipLineEnd(lineEnd, m_end);
        ++m_line;
        if (!ReadCode() || m_code != 0)
            continue;
        const std::string_view name(m_value, static_cast<std::size_t>(FindLineEnd(m_value, m_end) - m_value));
        if (IsRecordName(Trimmed(name)))
            return true;
    }
    return false;
}

bool TagCursor::SynchroniseBinary()
{
    const std::ptrdiff_t width = m_format == TagFormat::BinaryLong ? 2 : 1;
    while (m_end - ++m_at > width) {
        if (*m_at != 0 || m_at[width - 1] != 0)
            continue;
        const char* const name = m_at + width;
        const auto limit = static_cast<std::size_t>(std::min<std::ptrdiff_t>(m_end - name, 65));
        const void* const nul = std::memchr(name, 0, limit);
        if (nul != nullptr && IsRecordName({name, static_cast<std::size_t>(static_cast<const char*>(nul) - name)}))
            return true;
    }
    m_at = m_end;
    return false;
}

} // namespace sm::drawing
