// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/DwgFiles.h"
#include "dwg/file/Checksums.h"

#include <algorithm>

namespace sm::drawing::dwg::testing {

namespace {

constexpr std::uint32_t kMask = 0x4164536B;

std::string Masked(std::string bytes, std::uint32_t mask)
{
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bytes[i]) ^ (mask >> (8U * (i % 4)) & 0xFFU));
    return bytes;
}

std::string DataPage(std::uint32_t section, std::uint64_t offset, const std::string& data, std::uint32_t address)
{
    const auto size = static_cast<std::uint32_t>((32 + data.size() + 31) / 32 * 32);
    const std::uint32_t dataSum = PageSum(0, data);
    const std::string front =
        Le32(0x4163043B) + Le32(section) + Le32(static_cast<std::uint32_t>(data.size())) + Le32(size) + Le64(offset);
    const std::uint32_t headSum = PageSum(dataSum, front + Le32(0) + Le32(dataSum));
    std::string page = Masked(front + Le32(headSum) + Le32(dataSum), kMask ^ address) + data;
    page.resize(size);
    return page;
}

std::string SystemPage(std::uint32_t type, const std::string& table)
{
    const std::string data = Literal2004(table);
    const std::string front = Le32(type) + Le32(static_cast<std::uint32_t>(table.size())) +
                              Le32(static_cast<std::uint32_t>(data.size())) + Le32(2);
    std::string page = front + Le32(PageSum(PageSum(0, front + Le32(0)), data)) + data;
    page.resize((page.size() + 31) / 32 * 32);
    return page;
}

std::string MaskedHead(std::uint64_t pageMap, std::uint32_t sectionMapId)
{
    std::string head("AcFssFcAJMB\0", 12);
    head.resize(0x54);
    head += Le64(pageMap - 0x100) + Le32(sectionMapId);
    head.resize(0x68);
    head += Le32(Crc32(head + Le32(0)));
    std::uint32_t state = 1;
    for (char& c : head) {
        state = state * 0x343FD + 0x269EC3;
        c = static_cast<char>(static_cast<unsigned char>(c) ^ (state >> 16U & 0xFFU));
    }
    return head;
}

/// Lays pages one behind the other and keeps the page map.
class Pages {
public:
    std::uint32_t Add(const std::string& page)
    {
        bytes += page;
        map += Le32(++last) + Le32(static_cast<std::uint32_t>(page.size()));
        return last;
    }
    [[nodiscard]] std::uint32_t Next() const { return static_cast<std::uint32_t>(0x100 + bytes.size()); }

    std::string bytes, map;
    std::uint32_t last = 0;
};

} // namespace

std::string Literal2004(const std::string& shortOrLong)
{
    // No run is shorter than four bytes; what is too much isn't read.
    std::string bytes = shortOrLong;
    bytes.resize(std::max<std::size_t>(bytes.size(), 4));
    std::string data;
    const std::size_t count = bytes.size() - 3;
    if (count <= 0x0F) {
        data.push_back(static_cast<char>(count));
    } else {
        data.push_back('\0');
        std::size_t rest = count - 0x0F;
        for (; rest > 0xFF; rest -= 0xFF)
            data.push_back('\0');
        data.push_back(static_cast<char>(rest));
    }
    return data + bytes + std::string("\x11\0\0", 3);
}

PagedFile PagesOf(const std::map<std::string, std::string>& sections, const PagedOptions& options)
{
    PagedFile file;
    Pages pages;
    std::string table = Le32(static_cast<std::uint32_t>(sections.size())) + Le32(2) + Le32(0x7400) + Le32(0) +
                        Le32(static_cast<std::uint32_t>(sections.size()));
    std::uint32_t number = 0;
    for (const auto& [name, bytes] : sections) {
        ++number;
        std::string list;
        std::uint32_t count = 0;
        for (std::uint64_t at = 0; at < bytes.size(); at += options.pageSize, ++count) {
            const std::string data = Literal2004(bytes.substr(at, options.pageSize));
            file.pages[name].push_back(pages.Next());
            const std::uint32_t id = pages.Add(DataPage(number, at, data, pages.Next()));
            list += Le32(id) + Le32(static_cast<std::uint32_t>(data.size())) + Le64(at);
        }
        const std::uint64_t added = name == "AcDb:AcDbObjects" ? options.addedSize : 0;
        std::string padded = name;
        padded.resize(64);
        table += Le64(bytes.size() + added) + Le32(count) + Le32(options.pageSize) + Le32(1) + Le32(2) + Le32(number) +
                 Le32(options.encrypted ? 1 : 0) + padded + list;
    }
    file.sectionMap = pages.Next();
    const std::uint32_t sectionMapId = pages.Add(SystemPage(0x4163003B, table));
    file.pageMap = pages.Next();
    pages.bytes += SystemPage(0x41630E3B, pages.map + Le32(pages.last + 1) + Le32(0x20));
    file.bytes = options.magic + std::string(5, '\0') + '\x04';
    file.bytes.resize(0x13);
    file.bytes += Le16(30);
    file.bytes.resize(0x18);
    file.bytes += Le32(options.encrypted ? 1 : 0);
    file.bytes.resize(0x80);
    file.bytes += MaskedHead(file.pageMap, sectionMapId);
    file.bytes.resize(0x100);
    file.bytes += pages.bytes;
    return file;
}

} // namespace sm::drawing::dwg::testing
