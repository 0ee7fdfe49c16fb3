// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/TextDecoder.h"

#include "base/text/Utf8.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace sm::drawing {

namespace {

/// Pages of \M+1 to \M+5 (DXF reference, "multibyte characters").
constexpr std::array kEscapePages{"CP932", "BIG5", "CP949", "JOHAB", "GBK"};

std::optional<char32_t> HexDigits(std::string_view text, std::size_t at)
{
    if (at + 4 > text.size())
        return std::nullopt;
    unsigned value = 0;
    const char* const begin = text.data() + at;
    const auto [end, error] = std::from_chars(begin, begin + 4, value, 16);
    if (error != std::errc{} || end != begin + 4)
        return std::nullopt;
    return value;
}

/// The character after "\U+" at `at`, with its second half when it is one of a surrogate pair; moves behind it.
std::optional<char32_t> ReadUnicodeEscape(std::string_view raw, std::size_t& at)
{
    const std::optional<char32_t> first = HexDigits(raw, at + 3);
    if (!first)
        return std::nullopt;
    at += 7;
    if (*first < 0xD800 || *first > 0xDBFF || raw.substr(at, 3) != "\\U+")
        return first;
    const std::optional<char32_t> second = HexDigits(raw, at + 3);
    if (!second || *second < 0xDC00 || *second > 0xDFFF)
        return first;
    at += 7;
    return 0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00);
}

bool IsPlain(std::string_view raw)
{
    return std::none_of(raw.begin(), raw.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80 || c == '\\'; });
}

void AppendHex(std::string& text, char32_t value)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    text += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        text.push_back(kDigits[value >> shift & 0xF]);
}

} // namespace

TextDecoder::TextDecoder(const std::string& converter, bool utf8) : m_converter(converter), m_utf8(utf8) {}

const CodePage& TextDecoder::Page() const
{
    std::call_once(m_page.once, [this] { m_page.page = SharedPage(m_converter); });
    return *m_page.page;
}

const CodePage& TextDecoder::PageOfEscape(std::size_t number) const
{
    LazyPage& page = m_escapePages[number];
    std::call_once(page.once, [&] { page.page = SharedPage(kEscapePages[number]); });
    return *page.page;
}

bool TextDecoder::AppendPaged(std::string_view raw, std::size_t& at, std::string& target) const
{
    if (at + 8 > raw.size() || raw[at + 3] < '1' || raw[at + 3] > '5')
        return false;
    const std::optional<char32_t> value = HexDigits(raw, at + 4);
    if (!value)
        return false;
    std::string bytes;
    if (*value > 0xFF)
        bytes.push_back(static_cast<char>(*value >> 8));
    bytes.push_back(static_cast<char>(*value & 0xFF));
    std::size_t read = 0;
    base::AppendUtf8(target, PageOfEscape(static_cast<std::size_t>(raw[at + 3] - '1')).Read(bytes, read));
    at += 8;
    return true;
}

bool TextDecoder::AppendEscape(std::string_view raw, std::size_t& at, std::string& target) const
{
    const std::string_view lead = raw.substr(at, 3);
    if (lead == "\\M+")
        return AppendPaged(raw, at, target);
    if (lead != "\\U+")
        return false;
    const std::optional<char32_t> character = ReadUnicodeEscape(raw, at);
    if (character)
        base::AppendUtf8(target, *character);
    return character.has_value();
}

void TextDecoder::Append(std::string_view raw, std::string& target) const
{
    if (IsPlain(raw)) {
        target += raw;
        return;
    }
    const bool utf8 = m_utf8 && base::IsUtf8(raw);
    for (std::size_t at = 0; at < raw.size();) {
        const char c = raw[at];
        if (c == '\\' && AppendEscape(raw, at, target))
            continue;
        if (utf8 || static_cast<unsigned char>(c) < 0x80) {
            target.push_back(c);
            ++at;
        } else {
            base::AppendUtf8(target, Page().Read(raw, at));
        }
    }
}

void TextDecoder::Decode(std::string_view raw, std::string& target) const
{
    target.clear();
    Append(raw, target);
}

std::string TextDecoder::Decode(std::string_view raw) const
{
    std::string text;
    Append(raw, text);
    return text;
}

std::string TextDecoder::Encode(std::string_view utf8) const
{
    if (m_utf8 || IsPlain(utf8))
        return std::string(utf8);
    std::string bytes;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = base::ReadUtf8(utf8, at).value_or(0xFFFD);
        if (const std::optional<std::string> encoded = Page().Encode(character)) {
            bytes += *encoded;
        } else if (character < 0x10000) {
            AppendHex(bytes, character);
        } else {
            AppendHex(bytes, 0xD800 + ((character - 0x10000) >> 10));
            AppendHex(bytes, 0xDC00 + (character & 0x3FF));
        }
    }
    return bytes;
}

void DecodeCarets(std::string& text)
{
    std::size_t to = text.find('^');
    if (to == std::string::npos)
        return;
    for (std::size_t at = to; at < text.size(); ++at, ++to) {
        text[to] = text[at];
        if (text[at] != '^' || at + 1 == text.size())
            continue;
        const char next = text[at + 1];
        if (next != 'I' && next != 'J' && next != 'M' && next != ' ')
            continue;
        text[to] = next == ' ' ? '^' : static_cast<char>(next - '@');
        ++at;
    }
    text.resize(to);
}

} // namespace sm::drawing
