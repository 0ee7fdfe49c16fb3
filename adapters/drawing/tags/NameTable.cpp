// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/NameTable.h"

#include "base/text/Names.h"
#include "base/text/Utf8.h"

namespace sm::drawing {

void NameTable::Add(std::string_view raw, std::string_view utf8, std::uint32_t index)
{
    m_raw.emplace(raw, index);
    m_folded.emplace(base::FoldCase(utf8), index);
}

std::optional<std::uint32_t> NameTable::FindUtf8(std::string_view name) const
{
    const auto found = m_folded.find(base::FoldCase(name));
    return found == m_folded.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::uint32_t> NameTable::Find(std::string_view raw, const TextDecoder& decoder) const
{
    const auto found = m_raw.find(raw);
    return found != m_raw.end() ? std::optional(found->second) : FindUtf8(decoder.Decode(raw));
}

} // namespace sm::drawing
