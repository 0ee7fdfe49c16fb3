// SPDX-License-Identifier: GPL-3.0-or-later
// Walks the group codes and values of a DXF file or of a slice of it, ASCII or binary, without copying.
#pragma once

#include "tags/LineScan.h"
#include "tags/NumberText.h"
#include "tags/UnreadNumbers.h"

#include <cstdint>
#include <string_view>

namespace sm::drawing {

/// How tags are laid down: text lines; binary with one-byte codes (R10 to R12); binary with two-byte codes (from R13).
enum class TagFormat : std::uint8_t { Ascii, BinaryShort, BinaryLong };

/// What a value is in the file. Everything is Text in an ASCII file.
enum class ValueType : std::uint8_t { Text, Real, Integer, Chunk };

/// The kind of value and its width in bytes (0: up to a NUL; for Chunk: a length byte leads) that follow a group code
/// in a binary file (DXF reference, "group code value types"). Codes nobody knows are Text.
struct BinaryType {
    ValueType type = ValueType::Text;
    std::uint8_t width = 0;
};
BinaryType BinaryTypeOf(int code);

class TagCursor {
public:
    /// Walks bytes [begin, begin + length) of `file`; `line` is the number of the first line (binary: tag).
    TagCursor(std::string_view file, TagFormat format, std::uint64_t begin, std::uint64_t length, std::uint32_t line);

    /// Tells `unread`, which must outlive this, of the lines where a number is asked for and something else stands.
    void Tell(UnreadNumbers& unread) { m_unread = &unread; }

    /// To the next tag; false at the end, at a cut-off tag, and at bytes that are no tag (see Damaged()).
    bool Next() { return m_format == TagFormat::Ascii ? NextAscii() : NextBinary(); }

    [[nodiscard]] int Code() const { return m_code; }
    /// The bytes of a text value, without the line end; empty for numbers of binary files.
    [[nodiscard]] std::string_view Text() const { return m_text; }
    /// The same without blanks at its ends.
    [[nodiscard]] std::string_view Name() const { return Trimmed(m_text); }
    /// Numbers are read as leniently as ParseReal and ParseInteger do.
    [[nodiscard]] double Real() const
    {
        bool sound = true;
        const double value = m_type == ValueType::Text ? ParseReal(m_text, sound) : OtherReal();
        if (!sound)
            TellUnread();
        return value;
    }
    [[nodiscard]] std::int64_t Long() const;
    /// The value as 32 bits, at the nearest limit when it is larger.
    [[nodiscard]] std::int32_t Integer() const;
    [[nodiscard]] Handle HandleValue() const { return ParseHandle(m_text); }
    [[nodiscard]] ValueType Type() const { return m_type; }

    /// Byte offsets in the file of the tag's code, of its value, and of the byte behind it.
    [[nodiscard]] std::uint64_t Begin() const { return static_cast<std::uint64_t>(m_tag - m_file); }
    [[nodiscard]] std::uint64_t ValueBegin() const { return static_cast<std::uint64_t>(m_value - m_file); }
    [[nodiscard]] std::uint64_t End() const { return static_cast<std::uint64_t>(m_at - m_file); }
    /// Line of the value (ASCII), or number of the tag (binary); both from 1.
    [[nodiscard]] std::uint32_t Line() const { return m_line; }
    /// After Next() gave false: there are bytes left that are no tag.
    [[nodiscard]] bool Damaged() const { return m_damaged; }
    /// After Next() gave false: the last tag has no value, or only a part of one.
    [[nodiscard]] bool CutOff() const { return m_cutOff; }
    /// Moves behind damaged bytes to the next tag that starts a record (code 0 and a name); false when there is none.
    bool Resynchronise();

private:
    bool NextAscii();
    bool NextBinary();
    bool ReadCode() { return ReadPaddedCode() || ReadAnyCode(); }
    bool ReadPaddedCode();
    bool ReadAnyCode();
    bool ReadBinaryCode();
    bool ReadBinaryValue();
    void LoadNumber(BinaryType type);
    bool SynchroniseAscii();
    bool SynchroniseBinary();
    bool Damage();
    bool Cut();
    void TellUnread() const;
    [[nodiscard]] double OtherReal() const;

    const char* m_file;
    const char* m_at;
    const char* m_end;
    const char* m_tag;
    const char* m_value;
    std::string_view m_text;
    UnreadNumbers* m_unread = nullptr;
    double m_real = 0;
    std::int64_t m_integer = 0;
    std::uint32_t m_line;
    int m_code = 0;
    TagFormat m_format;
    ValueType m_type = ValueType::Text;
    bool m_damaged = false;
    bool m_cutOff = false;
};

// The walk of text files is the hot road of reading.

/// A code right-aligned in three places, as most programs write it, with its line end. False: nothing was read.
inline bool TagCursor::ReadPaddedCode()
{
    constexpr std::ptrdiff_t kRoom = 5;
    if (m_end - m_at <= kRoom)
        return false;
    const auto digit = [this](int i) { return static_cast<unsigned>(m_at[i]) - '0'; };
    const unsigned ones = digit(2);
    const unsigned tens = m_at[1] == ' ' ? 0 : digit(1);
    const unsigned hundreds = m_at[0] == ' ' ? 0 : digit(0);
    const bool blankInside = m_at[1] == ' ' && m_at[0] != ' ';
    if (ones > 9 || tens > 9 || hundreds > 9 || blankInside)
        return false;
    const bool feed = m_at[3] == '\n';
    if (!feed && (m_at[3] != '\r' || m_at[4] != '\n'))
        return false;
    m_code = static_cast<int>(100 * hundreds + 10 * tens + ones);
    m_value = m_at + (feed ? 4 : 5);
    return true;
}

inline bool TagCursor::NextAscii()
{
    m_tag = m_at;
    if (m_at >= m_end)
        return false;
    if (!ReadCode())
        return Damage();
    if (m_value >= m_end)
        return Cut();
    const char* const lineEnd = FindLineEnd(m_value, m_end);
    m_text = {m_value, static_cast<std::size_t>(lineEnd - m_value)};
    m_at = SkipLineEnd(lineEnd, m_end);
    m_line += 2;
    return true;
}

} // namespace sm::drawing
