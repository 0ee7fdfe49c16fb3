// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of TrueType and OpenType files (OpenType 1.9: "Font file").
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace sm::publisher {

using Tables = std::map<std::string, std::string_view, std::less<>>; ///< by tag

/// A number of `size` bytes, at most 4, the highest first; bytes beyond the end count as none.
std::uint32_t BigEndian(std::string_view bytes, std::size_t at, std::size_t size);

void PutBigEndian(std::string& out, std::uint32_t value, std::size_t size);

/// Parts of `sfnt`; none when one of them doesn't lie in it.
Tables SfntTables(std::string_view sfnt);

/// Nothing when there is none of at least `least` bytes.
std::optional<std::string_view> SfntTable(const Tables& tables, std::string_view tag, std::size_t least);

/// The TrueType file of these tables, head (of at least 12 bytes) among them, with their sums.
std::string JoinSfnt(const Tables& tables);

} // namespace sm::publisher
