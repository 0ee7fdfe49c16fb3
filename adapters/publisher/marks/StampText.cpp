// SPDX-License-Identifier: GPL-3.0-or-later
#include "marks/StampText.h"

#include "base/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fmt/format.h>
#include <utility>

namespace sm::publisher {

namespace {

struct FontName {
    std::string_view plain; ///< lower case letters only
    StampFont font;
};

constexpr StampFont kHelvetica{"Helvetica", StandardFace::Helvetica};
constexpr StampFont kHelveticaBold{"Helvetica-Bold", StandardFace::HelveticaBold};
constexpr StampFont kHelveticaOblique{"Helvetica-Oblique", StandardFace::Helvetica};
constexpr StampFont kHelveticaBoldOblique{"Helvetica-BoldOblique", StandardFace::HelveticaBold};
constexpr StampFont kTimes{"Times-Roman", StandardFace::TimesRoman};
constexpr StampFont kTimesBold{"Times-Bold", StandardFace::TimesBold};
constexpr StampFont kTimesItalic{"Times-Italic", StandardFace::TimesItalic};
constexpr StampFont kTimesBoldItalic{"Times-BoldItalic", StandardFace::TimesBoldItalic};
constexpr StampFont kCourier{"Courier", StandardFace::Courier};
constexpr StampFont kCourierBold{"Courier-Bold", StandardFace::Courier};
constexpr StampFont kCourierOblique{"Courier-Oblique", StandardFace::Courier};
constexpr StampFont kCourierBoldOblique{"Courier-BoldOblique", StandardFace::Courier};

constexpr std::array kFonts{
    FontName{"helvetica", kHelvetica},
    FontName{"helveticabold", kHelveticaBold},
    FontName{"helveticaoblique", kHelveticaOblique},
    FontName{"helveticaboldoblique", kHelveticaBoldOblique},
    FontName{"timesroman", kTimes},
    FontName{"timesbold", kTimesBold},
    FontName{"timesitalic", kTimesItalic},
    FontName{"timesbolditalic", kTimesBoldItalic},
    FontName{"courier", kCourier},
    FontName{"courierbold", kCourierBold},
    FontName{"courieroblique", kCourierOblique},
    FontName{"courierboldoblique", kCourierBoldOblique},
    FontName{"symbol", {"Symbol", StandardFace::Symbol, false}},
    FontName{"zapfdingbats", {"ZapfDingbats", StandardFace::ZapfDingbats, false}},
    FontName{"times", kTimes},
    FontName{"arial", kHelvetica},
    FontName{"arialbold", kHelveticaBold},
    FontName{"arialitalic", kHelveticaOblique},
    FontName{"arialbolditalic", kHelveticaBoldOblique},
    FontName{"timesnewroman", kTimes},
    FontName{"timesnewromanbold", kTimesBold},
    FontName{"timesnewromanitalic", kTimesItalic},
    FontName{"timesnewromanbolditalic", kTimesBoldItalic},
    FontName{"couriernew", kCourier},
    FontName{"couriernewbold", kCourierBold},
    FontName{"couriernewitalic", kCourierOblique},
    FontName{"couriernewbolditalic", kCourierBoldOblique},
};

// PDF 1.7, annex D: WinAnsiEncoding from 0x80 to 0x9F; 0 where it has no character.
constexpr std::array<char32_t, 32> kWinAnsiHigh{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

constexpr std::array<std::pair<char32_t, std::string_view>, 20> kSpellings{{
    {0x00A0, " "},    {0x2002, " "},  {0x2003, " "},  {0x2007, " "},  {0x2009, " "},  {0x202F, " "},  {0x2010, "-"},
    {0x2011, "-"},    {0x2012, "-"},  {0x2212, "-"},  {0x2032, "'"},  {0x2033, "\""}, {0x2044, "/"},  {0x2205, "\xD8"},
    {0x2300, "\xD8"}, {0x2260, "<>"}, {0x2264, "<="}, {0x2265, ">="}, {0x2192, "->"}, {0x2190, "<-"},
}};

/// The code of a character in WinAnsiEncoding, or 0.
unsigned WinAnsiCode(char32_t character)
{
    if ((character >= 0x20 && character < 0x7F) || (character >= 0xA1 && character < 0x100)) {
        return static_cast<unsigned>(character);
    }
    const auto* found = std::ranges::find(kWinAnsiHigh, character);
    return character == 0 || found == kWinAnsiHigh.end() ? 0
                                                         : 0x80U + static_cast<unsigned>(found - kWinAnsiHigh.begin());
}

std::string StandIn(char32_t character, bool latin)
{
    const auto* found = std::ranges::find(kSpellings, character, &std::pair<char32_t, std::string_view>::first);
    if (!latin) {
        return " ";
    }
    return found != kSpellings.end() ? std::string(found->second)
                                     : fmt::format("\\U+{:04X}", static_cast<std::uint32_t>(character));
}

void AppendCharacter(char32_t character, const StampFont& font, StampText& result)
{
    if (character < 0x20 || character == 0x7F) {
        character = ' ';
    }
    // Symbol fonts are addressed by their own codes, also through the private area that other programs use.
    const char32_t own = character >= 0xF020 && character <= 0xF0FF ? character - 0xF000 : character;
    const unsigned code = font.latin ? WinAnsiCode(character) : own < 0x100 ? static_cast<unsigned>(own) : 0;
    if (code != 0) {
        result.codes += static_cast<char>(code);
    } else {
        result.codes += StandIn(character, font.latin);
        result.complete = result.complete && character == 0x00A0;
    }
}

} // namespace

StampFont FindStampFont(std::string_view name)
{
    std::string plain;
    for (const char c : name) {
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            plain += static_cast<char>(c | 0x20);
        }
    }
    const auto* found = std::ranges::find(kFonts, std::string_view(plain), &FontName::plain);
    if (found != kFonts.end()) {
        return found->font;
    }
    StampFont stand = kHelvetica;
    stand.known = false;
    return stand;
}

StampText EncodeStampText(std::string_view text, const StampFont& font)
{
    StampText result;
    const std::string valid = base::ValidUtf8(text);
    for (std::size_t at = 0; at < valid.size();) {
        AppendCharacter(base::NextCharacter(valid, at), font, result);
    }
    int thousandths = 0;
    for (const char code : result.codes) {
        thousandths += StandardFontWidth(font.face, static_cast<unsigned char>(code));
    }
    result.width = thousandths / 1000.0;
    return result;
}

} // namespace sm::publisher
