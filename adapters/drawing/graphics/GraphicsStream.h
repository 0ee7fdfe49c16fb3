// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of an entity's picture: a head of size and count, then steps of size, kind and values, little-endian. For
// this room only.
#pragma once

#include "drawing/entities/Graphics.h"
#include "tags/Source.h"

#include <string_view>

namespace sm::drawing {

class GraphicsStream {
public:
    GraphicsStream(std::string_view bytes, const Drawing& drawing) : m_bytes(bytes), m_drawing(drawing) {}
    void ReadAll(GraphicsData& data);

private:
    bool Take(std::int32_t kind, Graphic& step);
    bool TakeProperty(std::int32_t kind, Graphic& step);
    void TakeCircle(Graphic& step, bool arc);
    void TakeThreePoints(Graphic& step, bool arc);
    void TakePoints(Graphic& step);
    void TakeMesh(Graphic& step);
    void TakeShell(Graphic& step);
    void TakeText(Graphic& step, bool wide, bool styled);
    void TakeColor(Graphic& step);
    void TakeMatrix(Graphic& step);

    [[nodiscard]] std::int32_t Integer();
    [[nodiscard]] double Real();
    [[nodiscard]] Vec3 Point();
    [[nodiscard]] std::string Text(bool wide);
    [[nodiscard]] std::size_t Left() const { return m_end - m_at; }
    [[nodiscard]] std::size_t Count(std::size_t width);

    std::string_view m_bytes;
    const Drawing& m_drawing;
    std::size_t m_at = 0, m_end = 0; ///< within the step at hand
    bool m_short = false;            ///< a step ended before its values did
};

} // namespace sm::drawing
