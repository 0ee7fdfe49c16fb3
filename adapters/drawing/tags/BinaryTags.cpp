// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagCursor.h"

#include <array>
#include <cmath>
#include <cstring>

namespace sm::drawing {

namespace {

/// Codes up to `last` (and above the row before) hold this type.
struct TypeRow {
    int last;
    BinaryType type;
};

constexpr BinaryType kText{ValueType::Text, 0};
constexpr BinaryType kReal{ValueType::Real, 8};
constexpr BinaryType kByte{ValueType::Integer, 1};
constexpr BinaryType kInt16{ValueType::Integer, 2};
constexpr BinaryType kInt32{ValueType::Integer, 4};
constexpr BinaryType kInt64{ValueType::Integer, 8};
constexpr BinaryType kChunk{ValueType::Chunk, 0};

constexpr std::array kTypes{
    TypeRow{9, kText},     TypeRow{59, kReal},    TypeRow{79, kInt16},   TypeRow{89, kText},   TypeRow{99, kInt32},
    TypeRow{109, kText},   TypeRow{149, kReal},   TypeRow{159, kText},   TypeRow{169, kInt64}, TypeRow{179, kInt16},
    TypeRow{209, kText},   TypeRow{239, kReal},   TypeRow{269, kText},   TypeRow{289, kInt16}, TypeRow{299, kByte},
    TypeRow{309, kText},   TypeRow{319, kChunk},  TypeRow{369, kText},   TypeRow{389, kInt16}, TypeRow{399, kText},
    TypeRow{409, kInt16},  TypeRow{419, kText},   TypeRow{429, kInt32},  TypeRow{439, kText},  TypeRow{459, kInt32},
    TypeRow{469, kReal},   TypeRow{1003, kText},  TypeRow{1004, kChunk}, TypeRow{1009, kText}, TypeRow{1059, kReal},
    TypeRow{1070, kInt16}, TypeRow{1071, kInt32},
};

/// The types by their codes, so that none is searched for.
constexpr std::size_t kCodes = 1072;
constexpr std::array<BinaryType, kCodes> MakeTypes()
{
    std::array<BinaryType, kCodes> types{};
    std::size_t code = 0;
    for (const TypeRow& row : kTypes)
        for (; code <= static_cast<std::size_t>(row.last); ++code)
            types[code] = row.type;
    return types;
}
constexpr std::array<BinaryType, kCodes> kTypeOfCode = MakeTypes();

template <class T> T Load(const char* at)
{
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

} // namespace

BinaryType BinaryTypeOf(int code)
{
    return code >= 0 && code < static_cast<int>(kCodes) ? kTypeOfCode[static_cast<std::size_t>(code)] : kText;
}

bool TagCursor::ReadBinaryCode()
{
    const std::ptrdiff_t left = m_end - m_at;
    if (m_format == TagFormat::BinaryLong) {
        if (left < 2)
            return Cut();
        m_code = Load<std::int16_t>(m_at);
        m_value = m_at + 2;
    } else {
        m_code = static_cast<unsigned char>(*m_at);
        m_value = m_at + 1;
        if (m_code == 255) {
            if (left < 3)
                return Cut();
            m_code = Load<std::int16_t>(m_at + 1);
            m_value = m_at + 3;
        }
    }
    return m_code >= -5 && m_code <= 1071 ? true : Damage();
}

void TagCursor::LoadNumber(BinaryType type)
{
    if (type.type == ValueType::Real) {
        m_real = Load<double>(m_value);
        if (!std::isfinite(m_real))
            m_real = 0;
    } else if (type.width == 1) {
        m_integer = static_cast<unsigned char>(*m_value);
    } else if (type.width == 2) {
        m_integer = Load<std::int16_t>(m_value);
    } else {
        m_integer = type.width == 4 ? Load<std::int32_t>(m_value) : Load<std::int64_t>(m_value);
    }
}

bool TagCursor::ReadBinaryValue()
{
    const BinaryType type = BinaryTypeOf(m_code);
    const auto left = static_cast<std::size_t>(m_end - m_value);
    m_type = type.type;
    m_text = {};
    if (type.type == ValueType::Text) {
        const void* const nul = left > 0 ? std::memchr(m_value, 0, left) : nullptr;
        if (nul == nullptr)
            return Cut();
        m_text = {m_value, static_cast<std::size_t>(static_cast<const char*>(nul) - m_value)};
        m_at = m_value + m_text.size() + 1;
        return true;
    }
    const bool chunk = type.type == ValueType::Chunk;
    const std::size_t lead = chunk ? 1 : 0;
    if (left < std::size_t{1})
        return Cut();
    const std::size_t width = chunk ? static_cast<unsigned char>(*m_value) : type.width;
    if (left < lead + width)
        return Cut();
    if (chunk)
        m_text = {m_value + 1, width};
    else
        LoadNumber(type);
    m_at = m_value + lead + width;
    return true;
}

bool TagCursor::NextBinary()
{
    m_tag = m_at;
    if (m_at >= m_end || !ReadBinaryCode() || !ReadBinaryValue())
        return false;
    ++m_line;
    return true;
}

} // namespace sm::drawing
