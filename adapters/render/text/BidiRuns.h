// SPDX-License-Identifier: GPL-3.0-or-later
// Text that runs both ways: the order in which its parts stand from left to right.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace sm::render {

/// Bytes of a text that run one way.
struct BidiRun {
    std::size_t from = 0, to = 0;
    bool rightToLeft = false;
};

/// True when a text holds characters that are written from right to left.
bool RunsBothWays(std::string_view text);

/// The runs of a text (UTF-8) by the Unicode bidirectional algorithm, from left to right; the first strong character
/// gives the direction of the whole. Throws std::runtime_error where the algorithm's library isn't installed.
std::vector<BidiRun> VisualRuns(std::string_view text);

/// The algorithm of texts in two directions: what is used of FriBidi's interface 0.
struct FriBidi {
    using Level = signed char;
    static constexpr std::uint32_t kNoDirection = 0x40; ///< of a paragraph: its first strong character counts
    void (*types)(const std::uint32_t* text, int length, std::uint32_t* types);
    void (*brackets)(const std::uint32_t* text, int length, const std::uint32_t* types, std::uint32_t* brackets);
    Level (*levels)(const std::uint32_t* types, const std::uint32_t* brackets, int length, std::uint32_t* direction,
                    Level* levels);

    /// Loads the library on the first call. Throws std::runtime_error when it isn't there.
    static const FriBidi& Loaded();
};

} // namespace sm::render
