// SPDX-License-Identifier: GPL-3.0-or-later
// The values that the steps of a picture consist of.
#include "base/text/Utf8.h"
#include "drawing/TextDecoder.h"
#include "graphics/GraphicsStream.h"

#include <cmath>
#include <cstring>

namespace sm::drawing {

std::int32_t GraphicsStream::Integer()
{
    std::int32_t value = 0;
    m_short = m_short || Left() < sizeof value;
    if (!m_short) {
        std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
        m_at += sizeof value;
    }
    return value;
}

double GraphicsStream::Real()
{
    double value = 0;
    m_short = m_short || Left() < sizeof value;
    if (!m_short) {
        std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
        m_at += sizeof value;
    }
    return std::isfinite(value) ? value : 0;
}

Vec3 GraphicsStream::Point()
{
    const double x = Real(), y = Real();
    return {x, y, Real()};
}

/// A count of things of at least `width` bytes each: never more than there are bytes for.
std::size_t GraphicsStream::Count(std::size_t width)
{
    const std::int32_t count = Integer();
    const bool fits = count >= 0 && static_cast<std::size_t>(count) <= Left() / width;
    m_short = m_short || !fits;
    return fits ? static_cast<std::size_t>(count) : 0;
}

/// Up to its NUL; padded to a multiple of four bytes.
std::string GraphicsStream::Text(bool wide)
{
    const std::size_t begin = m_at, width = wide ? 2 : 1;
    std::string text;
    std::uint32_t high = 0;
    bool ended = false;
    while (!ended && Left() >= width) {
        std::uint16_t c = static_cast<unsigned char>(m_bytes[m_at]);
        if (wide)
            std::memcpy(&c, m_bytes.data() + m_at, sizeof c);
        m_at += width;
        ended = c == 0;
        if (!wide && !ended)
            text.push_back(static_cast<char>(c));
        else if (c >= 0xD800 && c < 0xDC00)
            high = c;
        else if (c >= 0xDC00 && c < 0xE000 && high != 0)
            base::AppendUtf8(text, 0x10000 + ((high & 0x3FF) << 10 | (c & 0x3FF)));
        else if (!ended)
            base::AppendUtf8(text, c);
    }
    m_at = std::min(m_end, begin + (m_at - begin + 3) / 4 * 4);
    return wide ? text : m_drawing.Tags().text->Decode(text);
}

} // namespace sm::drawing
