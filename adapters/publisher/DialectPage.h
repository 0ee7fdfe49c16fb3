// Reads a page in our plotter's own PostScript, whose body is a PDF content stream already.
//
// The grammar is strict: the head, the procedures, the font resources and the tail must be exactly those that the
// plotter writes, and the body may hold nothing but the operators below with the right number of operands. Whatever
// else a file holds makes it no page of the dialect, and it goes to the interpreter.
#pragma once

#include "publisher/DialectPictures.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::publisher {

/// A font of the page. Codes are the bytes of its strings.
struct DialectFont {
    std::string name;     ///< as the body calls it, without "/"
    bool visible = false; ///< a TrueType subset; else glyphs that show nothing and make text findable
    std::map<std::uint8_t, std::string> unicode;  ///< code to UTF-16BE in hexadecimal
    std::map<std::uint8_t, std::uint16_t> glyphs; ///< visible: code to glyph of the subset
    std::map<std::uint8_t, std::int32_t> widths;  ///< not visible: code to thousandths of the em
    std::string sfnt;                             ///< visible: the TrueType file
};

struct DialectPage {
    std::vector<DialectFont> fonts;
    std::vector<DialectPicture> pictures; ///< the body calls them I1, I2, …
    std::string content;                  ///< the page's content stream
};

/// The page that `file` holds; nothing when it isn't in the dialect.
std::optional<DialectPage> ReadDialectPage(std::string_view file);

/// The content stream of a body: its operators are checked and text blocks are put between q and Q, as the dialect's BT
/// and ET save and restore the graphics state. Nothing when the body holds anything else, also when it shows another
/// picture than those from I1 to I`pictures`.
std::optional<std::string> TranslateDialectBody(std::string_view body, std::size_t pictures = 0);

/// The fonts defined in `setup`, one resource after the other; nothing when it holds anything else.
std::optional<std::vector<DialectFont>> ReadDialectFonts(std::string_view setup);

} // namespace sm::publisher
