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

} // namespace sm::render
