// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the packed values of drawing databases, for files that tests make themselves.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

namespace sm::drawing::dwg::testing {

class BitWriter {
public:
    BitWriter& Bits(std::uint64_t value, unsigned count)
    {
        while (count-- != 0) {
            if (m_bits % 8 == 0)
                m_bytes.push_back('\0');
            if ((value >> count & 1U) != 0)
                m_bytes.back() = static_cast<char>(m_bytes.back() | static_cast<char>(0x80U >> (m_bits % 8)));
            ++m_bits;
        }
        return *this;
    }
    BitWriter& RC(unsigned value) { return Bits(value, 8); }
    BitWriter& RS(unsigned value) { return RC(value & 0xFFU).RC(value >> 8U & 0xFFU); }
    BitWriter& RL(std::uint32_t value) { return RS(value & 0xFFFFU).RS(value >> 16U); }
    BitWriter& BS(unsigned value) { return value < 256 ? Bits(1, 2).RC(value) : Bits(0, 2).RS(value); }
    BitWriter& B(bool value) { return Bits(value ? 1 : 0, 1); }
    BitWriter& BL(std::uint32_t value) { return value < 256 ? Bits(1, 2).RC(value) : Bits(0, 2).RL(value); }
    BitWriter& BD(double value) { return value == 0 ? Bits(2, 2) : value == 1 ? Bits(1, 2) : Bits(0, 2).RD(value); }
    /// A colour of tables: its method and value as one number.
    BitWriter& Color(std::uint32_t raw) { return BS(0).BL(raw).RC(0); }
    /// A text up to R2004, and one from R2007 on.
    BitWriter& T(const std::string& text)
    {
        BS(static_cast<unsigned>(text.size()));
        for (const char c : text)
            RC(static_cast<unsigned char>(c));
        return *this;
    }
    BitWriter& WideT(const std::string& text)
    {
        BS(static_cast<unsigned>(text.size()));
        for (const char c : text)
            RS(static_cast<unsigned char>(c));
        return *this;
    }
    BitWriter& RD(double value)
    {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        return RL(static_cast<std::uint32_t>(bits)).RL(static_cast<std::uint32_t>(bits >> 32U));
    }
    /// Without leading zeros.
    BitWriter& H(unsigned code, std::uint64_t value)
    {
        unsigned count = 0;
        while (count < 8 && value >> (8U * count) != 0)
            ++count;
        RC(code << 4U | count);
        while (count-- != 0)
            RC(static_cast<unsigned>(value >> (8U * count) & 0xFFU));
        return *this;
    }
    [[nodiscard]] std::uint64_t Count() const { return m_bits; }
    [[nodiscard]] const std::string& Bytes() const { return m_bytes; }

private:
    std::string m_bytes;
    std::uint64_t m_bits = 0;
};

} // namespace sm::drawing::dwg::testing
