// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/SfntTables.h"

namespace sm::publisher {

std::uint32_t BigEndian(std::string_view bytes, std::size_t at, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

Tables SfntTables(std::string_view sfnt)
{
    const std::size_t count = BigEndian(sfnt, 4, 2);
    Tables tables;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = 12 + 16 * i;
        const std::size_t offset = BigEndian(sfnt, entry + 8, 4), length = BigEndian(sfnt, entry + 12, 4);
        if (entry + 16 > sfnt.size() || offset > sfnt.size() || length > sfnt.size() - offset) {
            return {};
        }
        tables[std::string(sfnt.substr(entry, 4))] = sfnt.substr(offset, length);
    }
    return tables;
}

std::optional<std::string_view> SfntTable(const Tables& tables, std::string_view tag, std::size_t least)
{
    const auto found = tables.find(tag);
    return found != tables.end() && found->second.size() >= least ? std::optional(found->second) : std::nullopt;
}

} // namespace sm::publisher
