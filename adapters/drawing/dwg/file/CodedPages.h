// SPDX-License-Identifier: GPL-3.0-or-later
// R2007: pages are cut into codewords that carry what corrects them, and these are interleaved.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sm::drawing::dwg {

/// A codeword has 255 bytes; of those of the tables 239 are data, of those of sections 251.
inline constexpr std::uint64_t kCodeword = 255, kTableData = 239, kSectionData = 251;

/// The data of `count` interleaved codewords, `data` bytes of each; zeros where `bytes` end before they do. They stand
/// in `room`, which grows where that is needed and is best used again.
std::string_view Deinterleave(std::string_view bytes, std::uint64_t count, std::uint64_t data, std::string& room);

} // namespace sm::drawing::dwg
