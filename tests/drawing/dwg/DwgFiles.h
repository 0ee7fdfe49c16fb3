// SPDX-License-Identifier: GPL-3.0-or-later
// DWG files that tests make themselves: the three kinds of container around streams of their choice.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace sm::drawing::dwg::testing {

/// Numbers as little-endian bytes.
std::string Le16(unsigned value);
std::string Le32(std::uint32_t value);
std::string Le64(std::uint64_t value);

/// The object's frame with a body of `size` bytes around it, its checksum behind: as R2000 writes it, and as R2018
/// does.
std::string Object2000(unsigned type, std::uint64_t handle, std::size_t size);
std::string Object2018(unsigned type, std::uint64_t handle, std::size_t size);

struct Place {
    std::uint64_t handle = 0, offset = 0;
};
/// The list of objects, in one chunk.
std::string MapOf(const std::vector<Place>& places);

/// Sentinel, size, data, checksum: what both header variables and classes stand in.
std::string Enclosed(const unsigned char (&sentinel)[16], const std::string& data, bool longSize);
extern const unsigned char kHeaderBegin[16], kClassesBegin[16];

/// Objects with handles 1, 2, ... of these sizes, all of type LINE.
struct Objects {
    std::string bytes;
    std::vector<Place> places;
};
Objects LinesOf2000(const std::vector<std::size_t>& sizes, std::uint64_t begin);
Objects LinesOf2018(const std::vector<std::size_t>& sizes);

/// R2000: five sections in the file itself. `metric`: what the template says.
struct SectionFile {
    std::string bytes;
    std::vector<Place> places;
    std::uint64_t map = 0, mapSize = 0, header = 0;
};
SectionFile FileOf2000(const std::vector<std::size_t>& sizes, unsigned metric);

/// R2004 and R2010 to R2018: named sections in compressed pages of `pageSize`, with both tables.
struct PagedFile {
    std::string bytes;
    std::uint64_t pageMap = 0, sectionMap = 0;               ///< addresses
    std::map<std::string, std::vector<std::uint64_t>> pages; ///< of each section
};
struct PagedOptions {
    std::string magic = "AC1032";
    std::uint32_t pageSize = 0x7400;
    bool encrypted = false;
    std::uint64_t addedSize = 0; ///< by how much the section table overstates the size of the objects
};
PagedFile PagesOf(const std::map<std::string, std::string>& sections, const PagedOptions& options = {});
/// The sections of a small drawing.
std::map<std::string, std::string> SectionsOf(const Objects& objects, bool longSize);

/// R2007: the same in coded pages.
std::string CodedFileOf(const std::map<std::string, std::string>& sections, bool encrypted = false);

/// The R2004 compression with nothing but literal bytes.
std::string Literal2004(const std::string& bytes);

} // namespace sm::drawing::dwg::testing
