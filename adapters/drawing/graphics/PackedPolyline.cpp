#include "graphics/PackedPolyline.h"

#include <cstring>

namespace sm::drawing {

namespace {

/// Reads the packed values of drawing databases, the highest bit of each byte first: two bits tell how a value is kept.
class BitReader {
public:
    explicit BitReader(std::string_view bytes) : m_bytes(bytes) {}
    [[nodiscard]] bool Failed() const { return m_failed; }
    [[nodiscard]] std::size_t BitsLeft() const { return m_bytes.size() * 8 - m_at; }

    std::uint32_t Bits(int count)
    {
        std::uint32_t value = 0;
        for (; count > 0; --count, ++m_at) {
            m_failed = m_failed || m_at / 8 >= m_bytes.size();
            if (m_failed)
                return 0;
            value = value << 1 | (static_cast<unsigned char>(m_bytes[m_at / 8]) >> (7 - m_at % 8) & 1U);
        }
        return value;
    }
    double Raw()
    {
        unsigned char bytes[sizeof(double)];
        for (unsigned char& byte : bytes)
            byte = static_cast<unsigned char>(Bits(8));
        return Double(bytes);
    }
    std::uint32_t Short()
    {
        switch (Bits(2)) {
        case 0: {
            const std::uint32_t low = Bits(8);
            return low | Bits(8) << 8;
        }
        case 1:
            return Bits(8);
        case 2:
            return 0;
        default:
            return 256;
        }
    }
    std::uint32_t Long()
    {
        switch (Bits(2)) {
        case 0: {
            const std::uint32_t low = Bits(8) | Bits(8) << 8;
            const std::uint32_t high = Bits(8) | Bits(8) << 8;
            return low | high << 16;
        }
        case 1:
            return Bits(8);
        default:
            return 0;
        }
    }
    double Real()
    {
        switch (Bits(2)) {
        case 0:
            return Raw();
        case 1:
            return 1;
        default:
            return 0;
        }
    }
    /// A number near another one: all of it, or the bytes that differ.
    double Near(double other)
    {
        const std::uint32_t kind = Bits(2);
        if (kind == 3)
            return Raw();
        unsigned char bytes[sizeof(double)];
        std::memcpy(bytes, &other, sizeof other);
        if (kind == 2) {
            bytes[4] = static_cast<unsigned char>(Bits(8));
            bytes[5] = static_cast<unsigned char>(Bits(8));
        }
        for (int i = 0; kind != 0 && i < 4; ++i)
            bytes[i] = static_cast<unsigned char>(Bits(8));
        return Double(bytes);
    }

private:
    static double Double(const unsigned char* bytes)
    {
        double value = 0;
        std::memcpy(&value, bytes, sizeof value);
        return std::isfinite(value) ? value : 0;
    }
    std::string_view m_bytes;
    std::size_t m_at = 0;
    bool m_failed = false;
};

enum Flag : std::uint32_t {
    kHasExtrusion = 1,
    kHasThickness = 2,
    kHasWidth = 4,
    kHasElevation = 8,
    kHasBulges = 16,
    kHasWidths = 32,
    kIsClosed = 512,
    kHasIdentifiers = 1024
};

void ReadVertices(BitReader& bits, std::size_t count, PolylineData& polyline)
{
    Vec3 last;
    for (std::size_t i = 0; i < count && !bits.Failed(); ++i) {
        if (i == 0) {
            last.x = bits.Raw();
            last.y = bits.Raw();
        } else {
            last.x = bits.Near(last.x);
            last.y = bits.Near(last.y);
        }
        polyline.vertices.emplace_back().point = last;
    }
}

} // namespace

bool ReadPackedPolyline(std::string_view bytes, PolylineData& polyline)
{
    BitReader bits(bytes);
    const std::uint32_t flags = bits.Short();
    const auto real = [&](Flag flag) { return (flags & flag) != 0 ? bits.Real() : 0; };
    const auto count = [&](Flag flag) { return (flags & flag) != 0 ? bits.Long() : 0; };
    polyline.constantWidth = real(kHasWidth);
    polyline.elevation = real(kHasElevation);
    polyline.thickness = real(kHasThickness);
    if ((flags & kHasExtrusion) != 0) {
        const double x = bits.Real(), y = bits.Real();
        polyline.extrusion = {x, y, bits.Real()};
    }
    const std::uint32_t vertices = bits.Long();
    const std::uint32_t bulges = count(kHasBulges), identifiers = count(kHasIdentifiers), widths = count(kHasWidths);
    polyline.closed = (flags & kIsClosed) != 0;
    if (vertices > bits.BitsLeft() / 4)
        return false;
    ReadVertices(bits, vertices, polyline);
    for (std::uint32_t i = 0; i < bulges && i < vertices; ++i)
        polyline.vertices[i].bulge = bits.Real();
    for (std::uint32_t i = 0; i < identifiers && i < vertices; ++i)
        (void)bits.Long();
    for (std::uint32_t i = 0; i < widths && i < vertices; ++i) {
        polyline.vertices[i].startWidth = bits.Real();
        polyline.vertices[i].endWidth = bits.Real();
    }
    for (PolyVertex& vertex : polyline.vertices)
        if (widths == 0)
            vertex.startWidth = vertex.endWidth = polyline.constantWidth;
    return !bits.Failed();
}

} // namespace sm::drawing
