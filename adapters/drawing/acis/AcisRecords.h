// SPDX-License-Identifier: GPL-3.0-or-later
// The records of a solid modeller's save, as text (SAT) or binary (SAB): names and values, without meaning yet.
//
// Text: three lines of heading (one before release 2), then records that end in "#"; "$n" points to the n-th record,
// "@n" leads a text of n bytes, "{ }" embrace a part that has a name of its own. Binary: 15 bytes of name, four whole
// numbers, then one byte of kind before each value. For this room only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing {

struct AcisToken {
    enum class Kind : std::uint8_t { Number, Pointer, Word, Open, Close } kind = Kind::Number;
    double number = 0;     ///< of a Pointer: the record; -1: none
    std::string_view word; ///< into the save
};

struct AcisRecord {
    std::string name;               ///< "straight-curve"
    std::size_t first = 0, end = 0; ///< its tokens
};

class AcisRecords {
public:
    /// Reads `save`, which outlives this. Damaged parts end the reading, what came before stays.
    explicit AcisRecords(std::string_view save);

    [[nodiscard]] const std::vector<AcisRecord>& All() const { return m_records; }
    /// Null: no such record.
    [[nodiscard]] const AcisRecord* Target(const AcisToken& pointer) const;
    [[nodiscard]] const AcisToken& Token(std::size_t index) const { return m_tokens[index]; }
    /// Numbers of a record behind its last pointer, up to its first part in braces.
    [[nodiscard]] std::vector<double> Numbers(const AcisRecord& record) const;
    /// The first token of the n-th part in braces of the save, its name; the number of tokens when there is none.
    [[nodiscard]] std::size_t Part(std::size_t n) const { return n < m_parts.size() ? m_parts[n] : m_tokens.size(); }
    [[nodiscard]] std::size_t TokenCount() const { return m_tokens.size(); }

private:
    void ReadText(std::string_view text);
    void TakeText(std::string_view text, std::size_t& at);
    void ReadBinary(std::string_view bytes);
    bool TakeBinary(std::string_view bytes, std::size_t& at);
    bool TakeNumbers(std::string_view bytes, std::size_t& at, std::size_t count);
    bool TakeWhole(std::string_view bytes, std::size_t& at, std::size_t width, AcisToken::Kind kind);
    bool TakeWord(std::string_view bytes, std::size_t& at, std::size_t lead, int kind);
    void Push(AcisToken token);
    void PushNumber(double value) { Push({AcisToken::Kind::Number, value, {}}); }
    void PushWord(std::string_view word);
    void EndRecord();
    void NoteParts();

    std::vector<AcisToken> m_tokens;
    std::vector<AcisRecord> m_records;
    std::vector<std::size_t> m_parts;
    std::string m_name; ///< of the record being read
    std::size_t m_first = 0;
    bool m_named = false;
    bool m_wide = false; ///< whole numbers of eight bytes
};

} // namespace sm::drawing
