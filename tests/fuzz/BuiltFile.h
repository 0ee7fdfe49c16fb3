// SPDX-License-Identifier: GPL-3.0-or-later
// DWG files around any bytes: containers and checksums are right, so that what stands inside them is met.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing::dwg::testing {

/// What a part of the input becomes in the file.
enum class Part : std::uint8_t {
    Object,   ///< two bytes: bits of its handles (R2010 and later); then the object from its type on
    Header,   ///< the header variables between size and checksum
    Classes,  ///< the same of the classes; without this part: a class for every kind that is decoded
    Data,     ///< the section of bodies
    Raw,      ///< any bytes among the objects
    Map,      ///< the list of objects instead of the right one; an empty one makes objects be searched
    Summary,  ///< the summary information
    Template, ///< the section that holds the unit system
    Count
};

struct PartOfInput {
    Part part = Part::Object;
    std::string_view bytes;
};

/// The input in parts: one byte for the kind, two for the size, then the bytes.
std::vector<PartOfInput> PartsOf(std::string_view input);
std::string PartBytes(Part part, std::string_view bytes);

/// Releases by number: 0 R13, 1 R14, 2 R2000, ... 7 R2018.
constexpr std::array kMagics{"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"};
constexpr auto kReleases = static_cast<unsigned>(kMagics.size());
std::string FileOfParts(unsigned release, std::string_view input);

/// The classes that a file without the part has, numbered from 500 on.
const std::vector<std::string>& ClassNames();

} // namespace sm::drawing::dwg::testing
