// SPDX-License-Identifier: GPL-3.0-or-later
// Finds table entries by the name that an entity's tag holds, without decoding it in the common case.
#pragma once

#include "drawing/TextDecoder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace sm::drawing {

class NameTable {
public:
    /// `raw` must outlive the table (bytes of the file); the first of two entries of one name stays.
    void Add(std::string_view raw, std::string_view utf8, std::uint32_t index);
    /// By the bytes in the file, letter case aside.
    [[nodiscard]] std::optional<std::uint32_t> Find(std::string_view raw, const TextDecoder& decoder) const;
    /// By the decoded name, letter case aside.
    [[nodiscard]] std::optional<std::uint32_t> FindUtf8(std::string_view name) const;

private:
    std::unordered_map<std::string_view, std::uint32_t> m_raw;
    std::unordered_map<std::string, std::uint32_t> m_folded;
};

} // namespace sm::drawing
