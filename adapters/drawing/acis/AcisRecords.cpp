// SPDX-License-Identifier: GPL-3.0-or-later
#include "acis/AcisRecords.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace sm::drawing {

namespace {

constexpr std::size_t kMostTokens = 20'000'000;
constexpr std::size_t kBinaryHead = 15;

bool IsBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

bool ParseNumber(std::string_view text, double& value)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() && std::isfinite(value);
}

template <class T> T Load(std::string_view bytes, std::size_t at)
{
    T value{};
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

} // namespace

AcisRecords::AcisRecords(std::string_view save)
{
    const bool binary = save.starts_with("ACIS BinaryFile") || save.starts_with("ASM BinaryFile");
    binary ? ReadBinary(save) : ReadText(save);
    NoteParts();
}

const AcisRecord* AcisRecords::Target(const AcisToken& pointer) const
{
    const bool known = pointer.kind == AcisToken::Kind::Pointer && pointer.number >= 0 &&
                       pointer.number < static_cast<double>(m_records.size());
    return known ? &m_records[static_cast<std::size_t>(pointer.number)] : nullptr;
}

std::vector<double> AcisRecords::Numbers(const AcisRecord& record) const
{
    std::vector<double> numbers;
    for (std::size_t i = record.first; i < record.end && m_tokens[i].kind != AcisToken::Kind::Open; ++i) {
        if (m_tokens[i].kind == AcisToken::Kind::Pointer)
            numbers.clear();
        else if (m_tokens[i].kind == AcisToken::Kind::Number)
            numbers.push_back(m_tokens[i].number);
    }
    return numbers;
}

void AcisRecords::Push(AcisToken token)
{
    if (m_tokens.size() < kMostTokens)
        m_tokens.push_back(token);
}

// A record begins with its name; what follows are its values.
void AcisRecords::PushWord(std::string_view word)
{
    if (m_named)
        Push({AcisToken::Kind::Word, 0, word});
    else
        m_name = word;
    m_named = true;
}

void AcisRecords::EndRecord()
{
    m_records.push_back({m_name, m_first, m_tokens.size()});
    m_name.clear();
    m_named = false;
    m_first = m_tokens.size();
}

// Parts that only refer to an earlier one ("ref n") have no number of their own.
void AcisRecords::NoteParts()
{
    for (std::size_t i = 0; i + 1 < m_tokens.size(); ++i)
        if (m_tokens[i].kind == AcisToken::Kind::Open && m_tokens[i + 1].word != "ref")
            m_parts.push_back(i + 1);
}

void AcisRecords::ReadText(std::string_view text)
{
    // Release 2 began to write the program, the date and the units into two lines of their own.
    constexpr int kLongHeadingFrom = 200;
    int release = kLongHeadingFrom;
    std::from_chars(text.data(), text.data() + text.size(), release);
    std::size_t at = 0;
    for (int line = 0; line < (release < kLongHeadingFrom ? 1 : 3); ++line) {
        at = text.find('\n', at);
        if (at == std::string_view::npos)
            return;
        ++at;
    }
    while (at < text.size())
        IsBlank(text[at]) ? void(++at) : TakeText(text, at);
}

void AcisRecords::TakeText(std::string_view text, std::size_t& at)
{
    std::size_t end = at;
    while (end < text.size() && !IsBlank(text[end]))
        ++end;
    const std::string_view word = text.substr(at, end - at);
    at = end;
    double number = 0;
    if (word == "#") {
        EndRecord();
    } else if (word == "{" || word == "}") {
        Push({word == "{" ? AcisToken::Kind::Open : AcisToken::Kind::Close, 0, {}});
    } else if (word.front() == '$' && ParseNumber(word.substr(1), number)) {
        Push({AcisToken::Kind::Pointer, number, {}});
    } else if (word.front() == '@' && ParseNumber(word.substr(1), number) && number >= 0) {
        const auto length = static_cast<std::size_t>(std::min(number, static_cast<double>(text.size() - at)));
        PushWord(text.substr(std::min(at + 1, text.size()), length));
        at = std::min(text.size(), at + 1 + length);
    } else if (ParseNumber(word, number)) {
        if (m_named) // else the record's own number
            PushNumber(number);
    } else {
        PushWord(word);
    }
}

void AcisRecords::ReadBinary(std::string_view bytes)
{
    if (bytes.size() <= kBinaryHead || std::endian::native != std::endian::little)
        return;
    m_wide = bytes[kBinaryHead - 1] == '8';
    std::size_t at = kBinaryHead + 4 * (m_wide ? sizeof(std::int64_t) : sizeof(std::int32_t));
    // Three texts and three numbers stand before the first record.
    while (at < bytes.size() && bytes[at] >= 6 && bytes[at] <= 9 && TakeBinary(bytes, at)) {
    }
    m_tokens.clear();
    m_name.clear();
    m_named = false;
    while (at < bytes.size() && TakeBinary(bytes, at)) {
    }
}

bool AcisRecords::TakeNumbers(std::string_view bytes, std::size_t& at, std::size_t count)
{
    if (bytes.size() - at < count * sizeof(double))
        return false;
    for (std::size_t i = 0; i < count; ++i, at += sizeof(double)) {
        const auto value = Load<double>(bytes, at);
        PushNumber(std::isfinite(value) ? value : 0);
    }
    return true;
}

bool AcisRecords::TakeWhole(std::string_view bytes, std::size_t& at, std::size_t width, AcisToken::Kind kind)
{
    if (bytes.size() - at < width)
        return false;
    double value = 0;
    if (width == sizeof(std::int16_t))
        value = Load<std::int16_t>(bytes, at);
    else if (width == sizeof(std::int32_t))
        value = Load<std::int32_t>(bytes, at);
    else
        value = static_cast<double>(Load<std::int64_t>(bytes, at));
    Push({kind, value, {}});
    at += width;
    return true;
}

// A text behind its length, which takes 1, 2 or 4 bytes.
bool AcisRecords::TakeWord(std::string_view bytes, std::size_t& at, std::size_t lead, int kind)
{
    constexpr int kName = 0x0D, kFirstName = 0x0E; // a record's name, and what stands before it with a hyphen
    if (bytes.size() - at < lead)
        return false;
    std::size_t length = static_cast<unsigned char>(bytes[at]);
    if (lead > 1)
        length = lead == 2 ? Load<std::uint16_t>(bytes, at) : Load<std::uint32_t>(bytes, at);
    at += lead;
    if (bytes.size() - at < length)
        return false;
    const std::string_view word = bytes.substr(at, length);
    at += length;
    if (m_named || (kind != kName && kind != kFirstName)) {
        Push({AcisToken::Kind::Word, 0, word});
        return true;
    }
    m_name += word;
    m_named = kind == kName;
    m_name += m_named ? "" : "-";
    return true;
}

// One value: a byte of kind, then its bytes.
bool AcisRecords::TakeBinary(std::string_view bytes, std::size_t& at)
{
    const int kind = static_cast<unsigned char>(bytes[at++]);
    const std::size_t whole = m_wide ? sizeof(std::int64_t) : sizeof(std::int32_t);
    switch (kind) {
    case 0x02:
        return at++ < bytes.size();
    case 0x03:
        return TakeWhole(bytes, at, sizeof(std::int16_t), AcisToken::Kind::Number);
    case 0x04:
    case 0x15:
        return TakeWhole(bytes, at, whole, AcisToken::Kind::Number);
    case 0x17:
        return TakeWhole(bytes, at, sizeof(std::int64_t), AcisToken::Kind::Number);
    case 0x0C:
        return TakeWhole(bytes, at, whole, AcisToken::Kind::Pointer);
    case 0x05: // a short real, which no edge needs
        at += sizeof(float);
        PushNumber(0);
        return at <= bytes.size();
    case 0x06:
        return TakeNumbers(bytes, at, 1);
    case 0x16:
        return TakeNumbers(bytes, at, 2);
    case 0x13:
    case 0x14:
        return TakeNumbers(bytes, at, 3);
    case 0x07:
    case 0x0D:
    case 0x0E:
        return TakeWord(bytes, at, 1, kind);
    case 0x08:
        return TakeWord(bytes, at, 2, kind);
    case 0x09:
    case 0x12:
        return TakeWord(bytes, at, 4, kind);
    case 0x0A:
    case 0x0B:
        Push({AcisToken::Kind::Word, 0, kind == 0x0A ? "reversed" : "forward"});
        return true;
    case 0x0F:
    case 0x10:
        Push({kind == 0x0F ? AcisToken::Kind::Open : AcisToken::Kind::Close, 0, {}});
        return true;
    case 0x11:
        EndRecord();
        return true;
    default:
        return false;
    }
}

} // namespace sm::drawing
