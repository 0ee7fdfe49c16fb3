// SPDX-License-Identifier: GPL-3.0-or-later
#include "ink/Palette.h"

#include <array>

namespace sm::render {

namespace {

constexpr int kWheelBegin = 10;
constexpr int kGreyBegin = 250;
constexpr std::uint32_t kPaperBlack = 0;

// 0 stands for no colour of its own.
constexpr std::array<std::uint32_t, 10> kNamed{kPaperBlack, 0xFF0000, 0xFFFF00,    0x00FF00, 0x00FFFF,
                                               0x0000FF,    0xFF00FF, kPaperBlack, 0x808080, 0xC0C0C0};
constexpr std::array<std::uint32_t, 6> kGreys{0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};

// The colour wheel: 24 hues 15 degrees apart, five brightnesses each, full and half saturation in turn.
constexpr std::uint32_t WheelColor(int index)
{
    constexpr std::array<double, 5> kBrightness{1, 0.65, 0.5, 0.3, 0.15};
    const int hue = index / 10 - 1;
    const double high = 255 * kBrightness[static_cast<std::size_t>(index % 10 / 2)];
    const double low = index % 2 == 1 ? high / 2 : 0;
    const int sector = hue / 4; // of 60 degrees
    const double part = (hue % 4) / 4.0;
    const double between = low + (high - low) * (sector % 2 == 0 ? part : 1 - part);
    const std::array<std::array<double, 3>, 6> sectors{{{high, between, low},
                                                        {between, high, low},
                                                        {low, high, between},
                                                        {low, between, high},
                                                        {between, low, high},
                                                        {high, low, between}}};
    std::uint32_t rgb = 0;
    for (const double channel : sectors[static_cast<std::size_t>(sector)]) {
        rgb = rgb << 8 | static_cast<std::uint32_t>(channel);
    }
    return rgb;
}

constexpr std::array<std::uint32_t, 256> MakePalette()
{
    std::array<std::uint32_t, 256> table{};
    for (int i = 0; i < 256; ++i) {
        const auto at = static_cast<std::size_t>(i);
        table[at] = i < kWheelBegin   ? kNamed[at]
                    : i >= kGreyBegin ? kGreys[static_cast<std::size_t>(i - kGreyBegin)]
                                      : WheelColor(i);
    }
    return table;
}

constexpr auto kPalette = MakePalette();

} // namespace

std::uint32_t PaperColor(std::int16_t index)
{
    return index >= 0 && index < 256 ? kPalette[static_cast<std::size_t>(index)] : kPaperBlack;
}

} // namespace sm::render
