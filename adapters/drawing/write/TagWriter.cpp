// SPDX-License-Identifier: GPL-3.0-or-later
#include "write/TagWriter.h"

#include "base/text/Utf8.h"

#include <array>
#include <charconv>
#include <cstring>

namespace sm::drawing {

namespace {

constexpr std::string_view kHex = "0123456789ABCDEF";

template <class Number> std::string Spell(Number number)
{
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), result.ptr};
}

std::string SpellHex(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes) {
        text.push_back(kHex[static_cast<unsigned char>(c) >> 4]);
        text.push_back(kHex[static_cast<unsigned char>(c) & 0xF]);
    }
    return text;
}

std::string ReadHex(std::string_view text)
{
    std::string bytes;
    for (std::size_t at = 0; at + 1 < text.size(); at += 2)
        bytes.push_back(static_cast<char>(ParseHandle(text.substr(at, 2))));
    return bytes;
}

std::string PadLeft(const std::string& text, std::size_t width)
{
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

bool IsInvalidUtf8(const std::string& text)
{
    return !base::IsUtf8(text);
}

/// Bytes that aren't UTF-8 become U+FFFD, so that the file stays readable.
std::string Mended(const std::string& text)
{
    std::string mended;
    for (std::size_t at = 0; at < text.size();)
        base::AppendUtf8(mended, base::ReadUtf8(text, at).value_or(0xFFFD));
    return mended;
}

} // namespace

std::string EncodeCarets(const std::string& text)
{
    std::string encoded;
    for (const char c : text) {
        if (c == '^') {
            encoded += "^ ";
        } else if (static_cast<unsigned char>(c) < 0x20) {
            encoded.push_back('^');
            encoded.push_back(static_cast<char>(c + '@'));
        } else {
            encoded.push_back(c);
        }
    }
    return encoded;
}

std::string DecodeAllCarets(const std::string& text)
{
    std::string decoded;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (text[at] != '^' || (next != ' ' && (next < '@' || next > '_'))) {
            decoded.push_back(text[at]);
            continue;
        }
        decoded.push_back(next == ' ' ? '^' : static_cast<char>(next - '@'));
        ++at;
    }
    return decoded;
}

std::string ItemText(const TagCursor& tag, const TextDecoder& text)
{
    switch (tag.Type()) {
    case ValueType::Real:
        return Spell(tag.Real());
    case ValueType::Integer:
        return Spell(tag.Long());
    case ValueType::Chunk:
        return SpellHex(tag.Text());
    case ValueType::Text:
        break;
    }
    const bool isText = BinaryTypeOf(tag.Code()).type == ValueType::Text;
    return isText ? DecodeAllCarets(text.Decode(tag.Text())) : std::string(tag.Name());
}

template <class Number> void TagWriter::Append(Number number)
{
    std::array<char, sizeof(Number)> bytes{};
    std::memcpy(bytes.data(), &number, sizeof number);
    m_bytes.append(bytes.data(), bytes.size());
}

void TagWriter::WriteCode(int code)
{
    if (m_style.format == TagFormat::Ascii) {
        m_bytes += PadLeft(std::to_string(code), m_style.paddedCodes ? 3 : 0) + m_style.lineEnd;
    } else if (m_style.format == TagFormat::BinaryLong) {
        Append(static_cast<std::int16_t>(code));
    } else if (code < 255) {
        m_bytes.push_back(static_cast<char>(code));
    } else {
        m_bytes.push_back('\xFF');
        Append(static_cast<std::int16_t>(code));
    }
}

void TagWriter::WriteAsciiValue(int code, const std::string& value)
{
    const BinaryType type = BinaryTypeOf(code);
    const std::string clean = IsInvalidUtf8(value) ? Mended(value) : value;
    if (type.type == ValueType::Text)
        m_bytes += m_text.Encode(EncodeCarets(clean));
    else if (type.type == ValueType::Integer && m_style.paddedIntegers)
        m_bytes += PadLeft(Spell(ParseInteger(value)), type.width == 2 ? 6 : 9);
    else
        m_bytes += EncodeCarets(clean);
    m_bytes += m_style.lineEnd;
}

/// A chunk holds 254 bytes at most; 127 as CAD programs write them.
void TagWriter::WriteChunks(int code, const std::string& hexadecimal)
{
    const std::string bytes = ReadHex(hexadecimal);
    constexpr std::size_t kMost = 127;
    for (std::size_t at = 0; at == 0 || at < bytes.size(); at += kMost) {
        const std::string chunk = bytes.substr(at, kMost);
        if (at > 0)
            WriteCode(code);
        m_bytes.push_back(static_cast<char>(chunk.size()));
        m_bytes += chunk;
    }
}

void TagWriter::WriteValue(int code, const std::string& value)
{
    if (m_style.format == TagFormat::Ascii) {
        WriteAsciiValue(code, value);
        return;
    }
    const BinaryType type = BinaryTypeOf(code);
    switch (type.type) {
    case ValueType::Text:
        m_bytes += m_text.Encode(EncodeCarets(IsInvalidUtf8(value) ? Mended(value) : value));
        m_bytes.push_back('\0');
        break;
    case ValueType::Real:
        Append(ParseReal(value));
        break;
    case ValueType::Chunk:
        WriteChunks(code, value);
        break;
    case ValueType::Integer:
        if (type.width == 2)
            Append(static_cast<std::int16_t>(ParseInteger(value)));
        else if (type.width == 4)
            Append(static_cast<std::int32_t>(ParseInteger(value)));
        else if (type.width == 8)
            Append(ParseInteger(value));
        else
            m_bytes.push_back(static_cast<char>(ParseInteger(value)));
        break;
    }
}

void TagWriter::Write(int code, const std::string& value)
{
    WriteCode(code);
    WriteValue(code, value);
}

} // namespace sm::drawing
