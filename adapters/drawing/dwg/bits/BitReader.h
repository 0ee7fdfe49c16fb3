// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the packed values of drawing databases from R13 on, the highest bit of each byte first.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace sm::drawing::dwg {

/// A handle as it is stored: what kind of link it is, and its bytes as a number.
struct RawHandle {
    std::uint8_t code = 0;
    std::uint64_t value = 0;
};

/// The functions are named after the codes of the format: B a bit, R.. raw, B.. bit-coded; C, S, L, LL one, two, four
/// and eight bytes, D a double. At the end of the range everything reads as zero, and Overrun() tells so.
class BitReader {
public:
    BitReader() = default;
    /// Reads bits [begin, end) of `bytes`; limits beyond the bytes are cut to them.
    BitReader(std::string_view bytes, std::uint64_t begin, std::uint64_t end)
        : m_bytes(reinterpret_cast<const unsigned char*>(bytes.data())), m_size(bytes.size()), m_at(begin),
          m_end(end < m_size * 8 ? end : m_size * 8)
    {
        if (m_at > m_end)
            Fail();
    }
    explicit BitReader(std::string_view bytes) : BitReader(bytes, 0, bytes.size() * 8) {}

    [[nodiscard]] std::uint64_t At() const { return m_at; }
    [[nodiscard]] std::uint64_t End() const { return m_end; }
    [[nodiscard]] std::uint64_t Left() const { return m_at < m_end ? m_end - m_at : 0; }
    /// Something was asked for that lies behind the end, or that no writer would store.
    [[nodiscard]] bool Overrun() const { return m_overrun; }
    void Fail()
    {
        m_overrun = true;
        m_at = m_end;
    }
    void Seek(std::uint64_t bit)
    {
        if (bit > m_end)
            Fail();
        else
            m_at = bit;
    }
    void Skip(std::uint64_t bits) { Seek(bits > Left() ? m_end + 1 : m_at + bits); }
    /// The range ends earlier from now on.
    void EndAt(std::uint64_t bit) { m_end = bit < m_end ? bit : m_end; }
    /// `count` when that many values of `bits` bits each can stand before the end; else the reader fails and it is 0.
    std::uint32_t Count(std::uint32_t count, std::uint32_t bits = 1);

    bool B() { return Bits(1) != 0; }
    std::uint32_t BB() { return Bits(2); }
    std::uint8_t RC() { return static_cast<std::uint8_t>(Bits(8)); }
    std::uint16_t RS();
    std::uint32_t RL();
    std::uint64_t RLL();
    double RD();
    /// Two bytes, the higher one first.
    std::uint16_t RSBig() { return static_cast<std::uint16_t>(Bits(16)); }
    std::uint16_t BS();
    /// The same as a signed number.
    std::int32_t SignedBS() { return static_cast<std::int16_t>(BS()); }
    std::uint32_t BL();
    std::int32_t SignedBL() { return static_cast<std::int32_t>(BL()); }
    std::uint64_t BLL();
    double BD();
    /// With a default: none, some or all of its bytes are replaced.
    double DD(double normal);
    /// Modular: seven bits a byte, the low ones first; signed, and unsigned.
    std::int64_t MC();
    std::uint64_t UMC();
    /// Fifteen bits a word, the low ones first.
    std::uint64_t MS();
    /// Type of an object from R2010 on.
    std::uint32_t BOT();
    RawHandle H();

    /// Up to 32 bits as a number, the first one highest.
    std::uint32_t Bits(unsigned count);
    /// So many words of eight bytes may be looked at, and lie before the end as far as `bytes` bytes go.
    [[nodiscard]] bool HoldsWords(std::uint64_t words, std::uint64_t bytes) const
    {
        return bytes <= Left() / 8 && (m_at >> 3) + words * sizeof(std::uint64_t) < m_size;
    }
    /// The word that stands so many words on, its first byte lowest; the reader stays.
    [[nodiscard]] std::uint64_t WordAt(std::uint64_t words) const;
    /// Appends whole bytes, wherever they begin; none when the range ends before.
    void Copy(std::uint64_t count, std::string& target);

private:
    /// What follows the first part of a number of several parts.
    std::uint64_t LongUMC(std::uint64_t value);
    std::uint64_t LongMS(std::uint64_t value);
    [[nodiscard]] std::uint64_t Window() const;
    [[nodiscard]] std::uint64_t Word() const;

    const unsigned char* m_bytes = nullptr;
    std::uint64_t m_size = 0; ///< bytes that may be touched
    std::uint64_t m_at = 0, m_end = 0;
    bool m_overrun = false;
};

/// The 57 bits or more from the reader's place on, left-aligned.
inline std::uint64_t BitReader::Window() const
{
    const std::uint64_t byte = m_at >> 3;
    std::uint64_t word = 0;
    if (byte + sizeof word <= m_size) {
        std::memcpy(&word, m_bytes + byte, sizeof word);
        word = __builtin_bswap64(word);
    } else {
        for (std::uint64_t i = 0; i < sizeof word && byte + i < m_size; ++i)
            word |= static_cast<std::uint64_t>(m_bytes[byte + i]) << (56 - 8 * i);
    }
    return word << (m_at & 7);
}

inline std::uint32_t BitReader::Bits(unsigned count)
{
    if (m_at + count > m_end) {
        Fail();
        return 0;
    }
    const std::uint64_t word = Window();
    m_at += count;
    return static_cast<std::uint32_t>(word >> (64 - count));
}

inline std::uint16_t BitReader::RS()
{
    return __builtin_bswap16(static_cast<std::uint16_t>(Bits(16)));
}

inline std::uint32_t BitReader::RL()
{
    return __builtin_bswap32(Bits(32));
}

/// The next 64 bits, left-aligned; the caller has proven that they are there.
inline std::uint64_t BitReader::Word() const
{
    const unsigned shift = m_at & 7;
    const std::uint64_t byte = m_at >> 3;
    const std::uint64_t window = Window();
    return shift == 0 ? window : window | m_bytes[byte + 8] >> (8 - shift);
}

inline std::uint64_t BitReader::WordAt(std::uint64_t words) const
{
    const unsigned shift = m_at & 7;
    const unsigned char* const from = m_bytes + (m_at >> 3) + words * sizeof(std::uint64_t);
    std::uint64_t word = 0;
    std::memcpy(&word, from, sizeof word);
    return shift == 0 ? word : __builtin_bswap64(__builtin_bswap64(word) << shift | from[8] >> (8 - shift));
}

inline std::uint64_t BitReader::RLL()
{
    constexpr unsigned kBits = 64;
    if (m_at + kBits > m_end) {
        Fail();
        return 0;
    }
    const std::uint64_t word = Word();
    m_at += kBits;
    return __builtin_bswap64(word);
}

inline std::uint16_t BitReader::BS()
{
    switch (Bits(2)) {
    case 0:
        return RS();
    case 1:
        return RC();
    case 2:
        return 0;
    default:
        return 256;
    }
}

inline std::uint32_t BitReader::BL()
{
    switch (Bits(2)) {
    case 0:
        return RL();
    case 1:
        return RC();
    case 2:
        return 0;
    default:
        Fail();
        return 0;
    }
}

inline double BitReader::BD()
{
    switch (Bits(2)) {
    case 0:
        return RD();
    case 1:
        return 1;
    case 2:
        return 0;
    default:
        Fail();
        return 0;
    }
}

inline std::uint64_t BitReader::UMC()
{
    const std::uint64_t byte = RC();
    return (byte & 0x80) == 0 ? byte : LongUMC(byte & 0x7F);
}

inline std::uint64_t BitReader::MS()
{
    const std::uint64_t word = RS();
    return (word & 0x8000) == 0 ? word : LongMS(word & 0x7FFF);
}

inline std::uint32_t BitReader::BOT()
{
    switch (Bits(2)) {
    case 0:
        return RC();
    case 1:
        return RC() + 0x1F0U;
    default:
        return RS();
    }
}

inline RawHandle BitReader::H()
{
    constexpr unsigned kMostBytes = 8, kWindowBytes = 7;
    const std::uint32_t head = Bits(8);
    RawHandle handle;
    handle.code = static_cast<std::uint8_t>(head >> 4);
    const std::uint64_t count = head & 15U;
    if (count > kMostBytes || m_at + 8 * count > m_end) {
        Fail();
        return handle;
    }
    if (count > kWindowBytes)
        handle.value = Word();
    else if (count != 0)
        handle.value = Window() >> (64 - 8 * count);
    m_at += 8 * count;
    return handle;
}

} // namespace sm::drawing::dwg
