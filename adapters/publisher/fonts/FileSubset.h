// SPDX-License-Identifier: GPL-3.0-or-later
// A part of a font's own file as a PDF embeds it, by HarfBuzz's subsetter.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace sm::publisher {

/// What a font's outlines are made of.
enum class Curves : std::uint8_t {
    Quadratic, ///< TrueType, in a glyf table
    Cubic,     ///< in a CFF table
};

struct FileSubset {
    /// Quadratic: a TrueType file without hints, of the tables that PDF 1.7, 9.9 asks for. Cubic: the CFF table, whose
    /// numbers are CIDs (PDF 1.7, 9.7.4.2).
    std::string program;
    std::vector<std::uint16_t> advances;            ///< of all its glyphs; font units
    std::map<std::uint32_t, std::uint16_t> numbers; ///< of the glyphs asked for, by those in the file
};

/// For fonts without variations that call their glyphs by names, not by CIDs. Throws std::runtime_error, with the
/// reason, when the file can't be read, holds no such curves, lacks one of the glyphs or lacks advances.
FileSubset MakeFileSubset(const std::string& path, std::int32_t index, Curves curves,
                          const std::set<std::uint32_t>& glyphs);

} // namespace sm::publisher
