// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/DwgFiles.h"

namespace sm::drawing::dwg::testing {

namespace {

/// Codewords of 255 bytes, byte by byte in turn; what corrects them is left zero, since intact files need none of it.
std::string Interleaved(const std::string& bytes, std::size_t data)
{
    const std::size_t count = ((bytes.size() + 7) / 8 * 8 + data - 1) / data;
    std::string coded(count * 255, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        coded[i / data + i % data * count] = bytes[i];
    coded.resize((coded.size() + 31) / 32 * 32);
    return coded;
}

class CodedPages {
public:
    std::uint64_t Add(const std::string& coded)
    {
        bytes += coded;
        map += Le64(coded.size()) + Le64(++last);
        return last;
    }
    std::string bytes, map;
    std::uint64_t last = 0;
};

std::string Wide(const std::string& name)
{
    std::string wide;
    for (const char c : name)
        wide += {c, '\0'};
    return wide;
}

std::string HeadOf(std::uint64_t pageMapAt, std::uint64_t pageMapSize, std::uint64_t sectionMapId,
                   std::uint64_t sectionMapSize)
{
    std::string head;
    for (std::uint64_t i = 0; i < 34; ++i)
        head += Le64(i == 3 || i == 27    ? 1
                     : i == 7             ? pageMapAt
                     : i == 10 || i == 11 ? pageMapSize
                     : i == 22 || i == 25 ? sectionMapSize
                     : i == 24            ? sectionMapId
                                          : 0);
    // Checks, the negative length of plain bytes, and another length.
    return Interleaved(std::string(24, '\0') + Le32(0xFFFFFEF0) + Le32(0) + head + std::string(408, '\0'), 239);
}

} // namespace

std::string CodedFileOf(const std::map<std::string, std::string>& sections, bool encrypted)
{
    CodedPages pages;
    std::string table;
    for (const auto& [name, bytes] : sections) {
        const std::string wide = Wide(name);
        const std::uint64_t id = pages.Add(Interleaved(bytes, 251));
        table += Le64(bytes.size()) + Le64(0xF800) + Le64(encrypted ? 1 : 0) + Le64(0) + Le64(wide.size()) + Le64(0) +
                 Le64(4) + Le64(1);
        table += wide + Le64(0) + Le64(bytes.size()) + Le64(id) + Le64(bytes.size()) + Le64(bytes.size()) + Le64(0) +
                 Le64(0);
    }
    const std::uint64_t sectionMap = pages.Add(Interleaved(table, 239));
    const std::uint64_t pageMapAt = pages.bytes.size();
    pages.bytes += Interleaved(pages.map, 239);
    std::string file = "AC1021";
    file.resize(0x13);
    file += Le16(30);
    file.resize(0x18);
    file += Le32(encrypted ? 1 : 0);
    file.resize(0x80);
    file += HeadOf(pageMapAt, pages.map.size(), sectionMap, table.size());
    file.resize(0x480);
    return file + pages.bytes;
}

} // namespace sm::drawing::dwg::testing
