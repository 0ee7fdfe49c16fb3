// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/Backdrop.h"

#include <algorithm>

namespace sm::scene {
namespace {

constexpr std::uint32_t kDarkSheet = 0x21;
constexpr std::uint32_t kReadable = 110; // luminance of a full colour, of 255
constexpr BackdropColors kLight{0xC8CCD0, 0xFFFFFF, 0x808488, 0x505458, 0xA0A4A8, 0x202020};
constexpr BackdropColors kDark{0x3A3E42, 0x212121, 0x2C2F32, 0x90949A, 0x60646A, 0xE0E0E0};

} // namespace

const BackdropColors& ColorsOf(Backdrop backdrop)
{
    return backdrop == Backdrop::Dark ? kDark : kLight;
}

// What is added to all parts alike turns their middle over, and leaves the distances between them: the hue. Full
// colours that are dark by themselves, as blue is, are lifted until they can be read.
std::uint32_t InkOn(Backdrop backdrop, std::uint32_t color)
{
    if (backdrop == Backdrop::Light)
        return color;
    std::uint32_t parts[] = {(color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF};
    const auto [least, most] = std::minmax({parts[0], parts[1], parts[2]});
    for (std::uint32_t& part : parts)
        part = kDarkSheet + (part + 0xFF - least - most) * (0xFF - kDarkSheet) / 0xFF;
    const std::uint32_t seen = (parts[0] * 30 + parts[1] * 59 + parts[2] * 11) / 100;
    const std::uint32_t wanted = kDarkSheet + (most - least) * (kReadable - kDarkSheet) / 0xFF;
    if (seen < wanted)
        for (std::uint32_t& part : parts)
            part += (0xFF - part) * (wanted - seen) / (0xFF - seen);
    return (color & 0xFF000000) | parts[0] << 16 | parts[1] << 8 | parts[2];
}

} // namespace sm::scene
