// SPDX-License-Identifier: GPL-3.0-or-later
// Colours in the raw form that multileaders and their styles use. For this room only.
#pragma once

#include "drawing/entities/Entity.h"

namespace sm::drawing {

/// The high byte says what the rest is: 0xC0 BYLAYER, 0xC1 BYBLOCK, 0xC2 0xRRGGBB, 0xC3 an index; others are BYBLOCK.
inline void SetRawColor(Entity& entity, std::int32_t raw)
{
    const auto value = static_cast<std::uint32_t>(raw);
    entity.trueColor.reset();
    entity.color = kByBlock;
    switch (value >> 24) {
    case 0xC0:
        entity.color = kByLayer;
        break;
    case 0xC2:
        entity.trueColor = value & 0xFFFFFF;
        break;
    case 0xC3:
        entity.color = static_cast<std::int16_t>(value & 0xFF);
        break;
    default:
        break;
    }
}

/// True for the colour of the paper, which stands for that of the window.
inline bool IsPaperColor(std::int32_t raw)
{
    return static_cast<std::uint32_t>(raw) >> 24 == 0xC8;
}

/// Hundredths of a millimetre, or -1 to -3.
inline std::int16_t BoundLineweight(std::int32_t value)
{
    return static_cast<std::int16_t>(std::clamp(value, -3, 1000));
}

} // namespace sm::drawing
