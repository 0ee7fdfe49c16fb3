// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the bytes of one record of a DWG of R9 to R12, one value after the other.
#pragma once

#include "base/Geometry.h"
#include "dwg/file/Bytes.h"

#include <numbers>

namespace sm::drawing::dwg {

class OldBytes {
public:
    OldBytes() = default;
    explicit OldBytes(std::string_view bytes) : m_bytes(bytes) {}

    /// Values behind the end read as zero, and this tells so.
    [[nodiscard]] bool Overrun() const { return m_overrun; }
    [[nodiscard]] std::size_t Left() const { return m_bytes.size() - m_at; }

    std::uint8_t RC() { return Value<std::uint8_t>(); }
    std::int16_t RS() { return Value<std::int16_t>(); }
    std::uint16_t Count() { return Value<std::uint16_t>(); }
    std::uint32_t RL() { return Value<std::uint32_t>(); }
    double RD() { return Value<double>(); }
    double Degrees() { return RD() * 180.0 / std::numbers::pi; }
    Vec2 Point2()
    {
        const double x = RD();
        return {x, RD()};
    }
    Vec3 Point3()
    {
        const Vec2 flat = Point2();
        return {flat.x, flat.y, RD()};
    }
    std::string_view Take(std::size_t count)
    {
        const std::string_view taken = m_bytes.substr(m_at, count);
        m_overrun = m_overrun || taken.size() < count;
        m_at += taken.size();
        return taken;
    }
    /// A text whose length leads.
    std::string_view Text() { return Take(Count()); }
    /// A number whose count of bytes leads, the highest byte first.
    std::uint64_t Handle()
    {
        std::uint64_t value = 0;
        for (const char c : Take(RC()))
            value = value << 8U | static_cast<unsigned char>(c);
        return value;
    }

private:
    template <class T> T Value()
    {
        const T value = LoadAt<T>(m_bytes, m_at);
        Take(sizeof value);
        return value;
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    bool m_overrun = false;
};

} // namespace sm::drawing::dwg
