// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/objects/NearestIndex.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

using Rgb = std::array<int, 3>;

constexpr Rgb Split(std::uint32_t rgb)
{
    return {static_cast<int>(rgb >> 16 & 0xFF), static_cast<int>(rgb >> 8 & 0xFF), static_cast<int>(rgb & 0xFF)};
}

/// The colour wheel on screen: 24 hues, five brightnesses each, full and half saturation in turn.
constexpr Rgb WheelColor(int index)
{
    constexpr std::array<double, 5> kBrightness{1, 0.8, 0.6, 0.5, 0.3};
    const int hue = index / 10 - 1, sector = hue / 4;
    const double high = 255 * kBrightness[static_cast<std::size_t>(index % 10 / 2)];
    const double low = index % 2 == 1 ? high / 2 : 0;
    const double part = hue % 4 / 4.0;
    const int top = static_cast<int>(high), bottom = static_cast<int>(low);
    const int between = static_cast<int>(low + (high - low) * (sector % 2 == 0 ? part : 1 - part));
    const std::array<Rgb, 6> sectors{{{top, between, bottom},
                                      {between, top, bottom},
                                      {bottom, top, between},
                                      {bottom, between, top},
                                      {between, bottom, top},
                                      {top, bottom, between}}};
    return sectors[static_cast<std::size_t>(sector)];
}

constexpr std::array<Rgb, 256> MakePalette()
{
    constexpr std::array<std::uint32_t, 10> kNamed{0,        0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                                   0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
    constexpr std::array<std::uint32_t, 6> kGreys{0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, 0xFFFFFF};
    constexpr int kWheel = 10, kGrey = 250;
    std::array<Rgb, 256> palette{};
    for (int i = 0; i < 256; ++i) {
        const auto at = static_cast<std::size_t>(i);
        palette[at] = i < kWheel  ? Split(kNamed[at])
                      : i < kGrey ? WheelColor(i)
                                  : Split(kGreys[at - static_cast<std::size_t>(kGrey)]);
    }
    return palette;
}

} // namespace

std::int32_t NearestIndex(std::uint32_t rgb)
{
    static constexpr std::array<Rgb, 256> kPalette = MakePalette();
    const Rgb wanted = Split(rgb);
    std::int32_t nearest = 1;
    int least = 0x7FFFFFFF;
    for (std::size_t i = 1; i < kPalette.size(); ++i) {
        int distance = 0;
        for (std::size_t k = 0; k < wanted.size(); ++k)
            distance += (kPalette[i][k] - wanted[k]) * (kPalette[i][k] - wanted[k]);
        if (distance < least) {
            least = distance;
            nearest = static_cast<std::int32_t>(i);
        }
    }
    return nearest;
}

} // namespace sm::drawing::dwg
