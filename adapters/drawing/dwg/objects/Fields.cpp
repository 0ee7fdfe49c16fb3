// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/objects/Fields.h"

#include "base/text/Utf8.h"
#include "drawing/CodePage.h"
#include "dwg/objects/NearestIndex.h"

#include <algorithm>
#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kByLayerMethod = 0xC0, kByBlockMethod = 0xC1, kRgbMethod = 0xC2, kIndexMethod = 0xC3,
                        kForegroundMethod = 0xC5, kNoneMethod = 0xC8;

constexpr std::int32_t kForeground = 7;

/// Control characters are two characters in tags: a caret, and the letter 64 places on; a caret itself has a blank.
void AppendPlain(std::string& text, unsigned character)
{
    if (character < 0x20) {
        text.push_back('^');
        text.push_back(static_cast<char>(character + 0x40));
    } else {
        text.push_back(static_cast<char>(character));
        if (character == '^')
            text.push_back(' ');
    }
}

constexpr std::uint64_t kEachByte = 0x0101010101010101, kHighBits = 0x80 * kEachByte;

/// Whether one of eight bytes isn't copied as it is: a control character or a caret.
bool NeedsCare(std::uint64_t bytes)
{
    const std::uint64_t carets = bytes ^ '^' * kEachByte;
    return (((bytes - 0x20 * kEachByte) & ~bytes) | ((carets - kEachByte) & ~carets)) & kHighBits;
}

bool IsPlain(std::string_view text)
{
    std::uint64_t word = 0;
    for (; text.size() >= sizeof word; text.remove_prefix(sizeof word)) {
        std::memcpy(&word, text.data(), sizeof word);
        if (NeedsCare(word))
            return false;
    }
    word = ' ' * kEachByte;
    text.copy(reinterpret_cast<char*>(&word), text.size());
    return !NeedsCare(word);
}

bool IsLeadByte(unsigned byte)
{
    return byte >= 0x81 && byte != 0xFF;
}

} // namespace

std::int32_t Color::Index() const
{
    switch (raw >> 24) {
    case kByLayerMethod:
        return kByLayer;
    case kByBlockMethod:
        return kByBlock;
    case kIndexMethod:
        return static_cast<std::int32_t>(raw & 0x1FF);
    case kForegroundMethod:
    case kNoneMethod:
        return kForeground;
    default:
        return NearestIndex(raw & 0xFFFFFF);
    }
}

std::optional<std::uint32_t> Color::Rgb() const
{
    const std::uint32_t method = raw >> 24;
    const bool rgb = method == kRgbMethod || method < kByLayerMethod || method > kNoneMethod;
    return rgb ? std::optional(raw & 0xFFFFFF) : std::nullopt;
}

Color Color::OfIndex(std::int32_t index)
{
    constexpr std::int32_t kNone = 257;
    const std::uint32_t method = index == kByLayer   ? kByLayerMethod
                                 : index == kByBlock ? kByBlockMethod
                                 : index == kNone    ? kNoneMethod
                                                     : kIndexMethod;
    return {method << 24 | static_cast<std::uint32_t>(index & 0x1FF), {}};
}

void Fields::Open(BitReader whole)
{
    data = whole;
    m_ownTexts = m_ownLinks = false;
}

void Fields::FindTexts(std::string_view bytes, std::uint64_t end)
{
    constexpr std::uint64_t kWord = 16;
    m_ownTexts = true;
    m_texts = BitReader(bytes, 0, 0);
    if (end == 0)
        return;
    data.EndAt(end - 1);
    std::uint64_t at = end - 1;
    if (!BitReader(bytes, at, end).B() || at < kWord)
        return;
    at -= kWord;
    std::uint64_t size = BitReader(bytes, at, at + kWord).RS();
    if ((size & 0x8000) != 0 && at >= kWord) {
        at -= kWord;
        size = (size & 0x7FFF) | static_cast<std::uint64_t>(BitReader(bytes, at, at + kWord).RS()) << 15;
    }
    if (size > at) {
        data.Fail();
        return;
    }
    m_texts = BitReader(bytes, at - size, at);
    data.EndAt(at - size);
}

std::string_view Fields::T()
{
    BitReader& reader = Texts();
    if (m_ownTexts && reader.Left() == 0)
        return {}; // no texts at all: all of them are empty
    const std::uint64_t length = reader.BS();
    return Since(Release::R2007) ? Utf16(reader, length) : Bytes(reader, length);
}

void Fields::SkipT()
{
    BitReader& reader = Texts();
    if (m_ownTexts && reader.Left() == 0)
        return;
    const std::uint64_t length = reader.BS();
    reader.Skip(length * (Since(Release::R2007) ? 16 : 8));
}

std::string_view Fields::Utf16(std::uint64_t units)
{
    return Utf16(data, units);
}

/// Most texts are short and hold letters of ASCII: four of them at a time. Empty when it is any other text.
std::string_view Fields::ShortUtf16(BitReader& reader, std::uint64_t units)
{
    constexpr std::uint64_t kPlaces = 0x0001000100010001, kNoLetter = 0xFF80 * kPlaces;
    const std::uint64_t words = (units + 3) / 4;
    if (units > kShort || !reader.HoldsWords(words, 2 * units))
        return {};
    for (std::uint64_t i = 0; i < words; ++i) {
        std::uint64_t word = reader.WordAt(i);
        if (const std::uint64_t left = units - 4 * i; left < 4) // blanks for what is behind the text
            word = (word & ~(~std::uint64_t{0} << 16 * left)) | 0x20 * kPlaces << 16 * left;
        // The bytes between the letters are taken for blanks.
        if ((word & kNoLetter) != 0 || NeedsCare(word | 0x2000 * kPlaces))
            return {};
        const std::uint64_t pairs = word | word >> 8;
        const auto four = static_cast<std::uint32_t>((pairs & 0xFFFF) | (pairs >> 16 & 0xFFFF0000));
        std::memcpy(m_short + 4 * i, &four, sizeof four);
    }
    reader.Skip(16 * units);
    return {m_short, static_cast<std::size_t>(units)};
}

/// The same in a code page. Files up to R14 have a NUL behind many texts, which counts.
std::string_view Fields::ShortBytes(BitReader& reader, std::uint64_t length)
{
    const std::uint64_t words = (length + 7) / 8;
    if (length == 0 || length > kShort || !reader.HoldsWords(words, length))
        return {};
    for (std::uint64_t i = 0; i < words; ++i) {
        const std::uint64_t word = reader.WordAt(i);
        std::memcpy(m_short + 8 * i, &word, sizeof word);
    }
    const std::uint64_t shown = m_short[length - 1] == '\0' ? length - 1 : length;
    if (shown == 0)
        return {};
    std::memset(m_short + shown, ' ', 8 * words - shown);
    for (std::uint64_t i = 0; i < words; ++i) {
        std::uint64_t word = 0;
        std::memcpy(&word, m_short + 8 * i, sizeof word);
        if (NeedsCare(word))
            return {};
    }
    reader.Skip(8 * length);
    return {m_short, static_cast<std::size_t>(shown)};
}

std::string_view Fields::Utf16(BitReader& reader, std::uint64_t units)
{
    m_text.clear();
    if (units > reader.Left() / 16) {
        reader.Fail();
        return {};
    }
    if (const std::string_view plain = ShortUtf16(reader, units); !plain.empty())
        return plain;
    for (; units > 0; --units) {
        std::uint32_t unit = reader.RS();
        if (unit == 0)
            continue;
        if (unit < 0x80) {
            AppendPlain(m_text, unit);
            continue;
        }
        if ((unit & 0xFC00) == 0xD800 && units > 1) {
            BitReader ahead = reader;
            const std::uint32_t low = ahead.RS();
            if ((low & 0xFC00) == 0xDC00) {
                unit = 0x10000 + ((unit & 0x3FF) << 10 | (low & 0x3FF));
                reader = ahead;
                --units;
            }
        }
        base::AppendUtf8(m_text, unit);
    }
    return m_text;
}

std::string_view Fields::Bytes(BitReader& reader, std::uint64_t length)
{
    m_text.clear();
    if (length > reader.Left() / 8) {
        reader.Fail();
        return {};
    }
    if (const std::string_view plain = ShortBytes(reader, length); !plain.empty())
        return plain;
    // Nearly all texts need no more than a copy.
    BitReader again = reader;
    reader.Copy(length, m_text);
    if (IsPlain(m_text))
        return m_text;
    m_text.clear();
    reader = again;
    for (; length > 0; --length) {
        const unsigned byte = reader.RC();
        if (m_doubleByte && IsLeadByte(byte) && length > 1) {
            m_text.push_back(static_cast<char>(byte));
            m_text.push_back(static_cast<char>(reader.RC()));
            --length;
        } else if (byte != 0) {
            AppendPlain(m_text, byte);
        }
    }
    return m_text;
}

Handle Fields::Resolve(RawHandle raw) const
{
    switch (raw.code) {
    case 6:
        return own + 1;
    case 8:
        return own - 1;
    case 0xA:
        return own + raw.value;
    case 0xC:
        return own - raw.value;
    case 0xE:
        return own;
    default:
        return raw.value;
    }
}

// The order of evaluation in braces is that of the text.
Vec2 Fields::RD2()
{
    return Vec2{data.RD(), data.RD()};
}

Vec3 Fields::RD3()
{
    return Vec3{data.RD(), data.RD(), data.RD()};
}

Vec2 Fields::BD2()
{
    return Vec2{data.BD(), data.BD()};
}

Vec3 Fields::BD3()
{
    return Vec3{data.BD(), data.BD(), data.BD()};
}

Vec2 Fields::DD2(Vec2 normal)
{
    return Vec2{data.DD(normal.x), data.DD(normal.y)};
}

double Fields::BT()
{
    return Since(Release::R2000) && data.B() ? 0 : data.BD();
}

Vec3 Fields::BE()
{
    if (Since(Release::R2000) && data.B())
        return {0, 0, 1};
    Vec3 normal = BD3();
    if (normal.x == 0 && normal.y == 0)
        normal.z = normal.z < 0 ? -1 : 1;
    return normal;
}

Color Fields::CMTC()
{
    Color color;
    (void)data.BS();
    color.raw = data.BL();
    const unsigned flags = data.RC();
    constexpr unsigned kHasName = 1, kHasBook = 2;
    if ((flags & kHasName) != 0)
        color.name = T();
    if ((flags & kHasBook) != 0)
        color.name = std::string(T()) + "$" + color.name;
    return color;
}

} // namespace sm::drawing::dwg
