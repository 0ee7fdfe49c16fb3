// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/SfntTables.h"

#include <bit>

namespace sm::publisher {

std::uint32_t BigEndian(std::string_view bytes, std::size_t at, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

void PutBigEndian(std::string& out, std::uint32_t value, std::size_t size)
{
    for (std::size_t i = size; i-- > 0;) {
        out += static_cast<char>(value >> (8 * i) & 0xFF);
    }
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

namespace {

constexpr std::size_t kSumInHead = 8; ///< the place of the sum over the file

std::uint32_t Checksum(std::string_view bytes)
{
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        sum += BigEndian(bytes, at, 4) << (at + 4 > bytes.size() ? 8 * (at + 4 - bytes.size()) : 0);
    }
    return sum;
}

/// The version and what readers of old search the list of tables by (OpenType 1.9: "Table directory").
std::string Directory(std::size_t tables)
{
    const auto power = static_cast<std::uint32_t>(std::bit_width(tables) - 1);
    std::string bytes;
    PutBigEndian(bytes, 0x00010000, 4);
    for (const std::uint32_t word : {static_cast<std::uint32_t>(tables), 16U << power, power,
                                     16 * static_cast<std::uint32_t>(tables) - (16U << power)}) {
        PutBigEndian(bytes, word, 2);
    }
    return bytes;
}

} // namespace

std::string JoinSfnt(const Tables& tables)
{
    std::string list = Directory(tables.size()), body;
    std::size_t sumPlace = 0;
    for (const auto& [tag, bytes] : tables) {
        std::string table(bytes);
        const std::size_t offset = 12 + 16 * tables.size() + body.size();
        if (tag == "head") {
            table.replace(kSumInHead, 4, 4, '\0');
            sumPlace = offset + kSumInHead;
        }
        list += tag;
        PutBigEndian(list, Checksum(table), 4);
        PutBigEndian(list, static_cast<std::uint32_t>(offset), 4);
        PutBigEndian(list, static_cast<std::uint32_t>(table.size()), 4);
        body += table;
        body.append((4 - body.size() % 4) % 4, '\0');
    }
    std::string file = list + body, sum;
    PutBigEndian(sum, 0xB1B0AFBA - Checksum(file), 4);
    return file.replace(sumPlace, sum.size(), sum);
}

} // namespace sm::publisher
