// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a page in our plotter's own PostScript, whose body and stroked glyphs are PDF content streams already.
//
// The grammar is strict: the head, the procedures, the font resources and the tail must be exactly those that the
// plotter writes, and the body may hold nothing but the operators below with the right number of operands. Whatever
// else a file holds makes it no page of the dialect, and it goes to the interpreter.
#pragma once

#include "dialect/DialectPictures.h"
#include "fonts/FileSubset.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace sm::publisher {

/// Where an outline font's glyphs were taken from. Of cubic curves the page holds approximations, of quadratic ones the
/// true ones.
struct FontSource {
    std::string path; ///< of a TrueType or OpenType file; may be empty
    std::int32_t index = 0;
    Curves curves = Curves::Quadratic;
    std::vector<std::uint32_t> glyphs; ///< in that file, of the subset's glyphs from 1 on
};

/// A font of the page. Codes are the bytes of its strings.
struct DialectFont {
    enum class Kind : std::uint8_t {
        Invisible, ///< glyphs that show nothing and make text findable
        Outlines,  ///< a TrueType subset
        Strokes,   ///< glyphs drawn with a pen
    };
    std::string name; ///< as the body calls it, without "/"
    std::string face; ///< outlines: the true name of the font, letters, digits and hyphens; may be empty
    Kind kind = Kind::Invisible;
    std::map<std::uint8_t, std::string> unicode;  ///< code to UTF-16BE in hexadecimal
    std::map<std::uint8_t, std::uint16_t> glyphs; ///< outlines: code to glyph of the subset
    std::map<std::uint8_t, double> widths;        ///< the others: code to thousandths of the em
    std::string sfnt;                             ///< outlines: the TrueType file
    FontSource source;                            ///< outlines
    std::map<std::uint8_t, std::string> strokes;  ///< strokes: code to content stream
    std::array<double, 4> box{};                  ///< strokes: of all glyphs, thousandths of the em
};

/// A layer of the drawing that parts of the page belong to.
struct DialectLayer {
    enum class State : std::uint8_t { On, Off, NotPlotted } state = State::On;
    std::string name; ///< UTF-8
    friend bool operator==(const DialectLayer&, const DialectLayer&) = default;
};

struct DialectPage {
    std::vector<DialectFont> fonts;
    std::vector<DialectPicture> pictures;         ///< the body calls them I1, I2, …
    std::map<std::uint32_t, DialectLayer> layers; ///< by the number that the body calls them by: "/L3"
    std::string_view body;                        ///< in the file; not yet checked, see CheckDialectBody
};

/// The page that `file` holds; nothing when what is round its body isn't in the dialect.
std::optional<DialectPage> ReadDialectPage(std::string_view file);

/// How a body, or a part of one that ends with a complete operation, opens and closes graphics states.
struct BodyFacts {
    std::int32_t depth = 0;  ///< more were opened than closed
    std::int32_t lowest = 0; ///< the smallest depth on the way, at most 0
    /// The same of layers (/OC /L3 BDC ... EMC), and the largest depth on the way.
    std::int32_t layerDepth = 0, lowestLayer = 0, highestLayer = 0;
    std::set<std::uint32_t> layers, opacities; ///< that it names (opacities: /A128 gs)
};

/// Nothing when the body holds anything else than the dialect, which means the same as a PDF content stream: the
/// dialect's BT and ET save and restore the graphics state, PDF's don't, so that a text block has to set font and place
/// itself, and one that hides its text has to stand between q and Q. Other pictures than I1 to I`pictures` are refused.
std::optional<BodyFacts> CheckDialectBody(std::string_view body, std::size_t pictures = 0);

/// The body in parts of at least `size` bytes, the last one smaller, that end with complete operations.
std::vector<std::string_view> CutDialectBody(std::string_view body, std::size_t size);

/// The layers that comments of a page's head declare: "%SheetmakerLayer: 3 on <57616C6C73>", with on, off or unplotted
/// and the name's UTF-8 in hexadecimal. Nothing when such a comment is of another form.
std::optional<std::map<std::uint32_t, DialectLayer>> ReadDialectLayers(std::string_view head);

/// The fonts defined in `setup`, one resource after the other; nothing when it holds anything else.
std::optional<std::vector<DialectFont>> ReadDialectFonts(std::string_view setup);

} // namespace sm::publisher
