// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/CharacterBlocks.h"

#include <algorithm>
#include <array>

namespace sm::render {

namespace {

struct Block {
    char32_t first, last;
    std::string_view name;
};

/// In rising order.
constexpr std::array kBlocks{
    Block{0x20, 0x7F, "Basic Latin"},
    Block{0x80, 0xFF, "Latin-1 Supplement"},
    Block{0x100, 0x24F, "Latin Extended"},
    Block{0x250, 0x2AF, "IPA Extensions"},
    Block{0x2B0, 0x2FF, "Spacing Modifier Letters"},
    Block{0x300, 0x36F, "Combining Diacritical Marks"},
    Block{0x370, 0x3FF, "Greek"},
    Block{0x400, 0x52F, "Cyrillic"},
    Block{0x530, 0x58F, "Armenian"},
    Block{0x590, 0x5FF, "Hebrew"},
    Block{0x600, 0x6FF, "Arabic"},
    Block{0x700, 0x74F, "Syriac"},
    Block{0x750, 0x77F, "Arabic"},
    Block{0x780, 0x7BF, "Thaana"},
    Block{0x8A0, 0x8FF, "Arabic"},
    Block{0x900, 0x97F, "Devanagari"},
    Block{0x980, 0x9FF, "Bengali"},
    Block{0xA00, 0xA7F, "Gurmukhi"},
    Block{0xA80, 0xAFF, "Gujarati"},
    Block{0xB00, 0xB7F, "Oriya"},
    Block{0xB80, 0xBFF, "Tamil"},
    Block{0xC00, 0xC7F, "Telugu"},
    Block{0xC80, 0xCFF, "Kannada"},
    Block{0xD00, 0xD7F, "Malayalam"},
    Block{0xD80, 0xDFF, "Sinhala"},
    Block{0xE00, 0xE7F, "Thai"},
    Block{0xE80, 0xEFF, "Lao"},
    Block{0xF00, 0xFFF, "Tibetan"},
    Block{0x1000, 0x109F, "Myanmar"},
    Block{0x10A0, 0x10FF, "Georgian"},
    Block{0x1100, 0x11FF, "Hangul"},
    Block{0x1200, 0x139F, "Ethiopic"},
    Block{0x13A0, 0x13FF, "Cherokee"},
    Block{0x1780, 0x17FF, "Khmer"},
    Block{0x1800, 0x18AF, "Mongolian"},
    Block{0x1E00, 0x1EFF, "Latin Extended"},
    Block{0x1F00, 0x1FFF, "Greek"},
    Block{0x2000, 0x206F, "General Punctuation"},
    Block{0x2070, 0x209F, "Superscripts and Subscripts"},
    Block{0x20A0, 0x20CF, "Currency Symbols"},
    Block{0x2100, 0x214F, "Letterlike Symbols"},
    Block{0x2150, 0x218F, "Number Forms"},
    Block{0x2190, 0x21FF, "Arrows"},
    Block{0x2200, 0x22FF, "Mathematical Operators"},
    Block{0x2300, 0x23FF, "Miscellaneous Technical"},
    Block{0x2460, 0x24FF, "Enclosed Alphanumerics"},
    Block{0x2500, 0x257F, "Box Drawing"},
    Block{0x2580, 0x259F, "Block Elements"},
    Block{0x25A0, 0x25FF, "Geometric Shapes"},
    Block{0x2600, 0x26FF, "Miscellaneous Symbols"},
    Block{0x2700, 0x27BF, "Dingbats"},
    Block{0x2E80, 0x2FDF, "CJK Radicals"},
    Block{0x3000, 0x303F, "CJK Symbols and Punctuation"},
    Block{0x3040, 0x309F, "Hiragana"},
    Block{0x30A0, 0x30FF, "Katakana"},
    Block{0x3100, 0x312F, "Bopomofo"},
    Block{0x3130, 0x318F, "Hangul"},
    Block{0x3200, 0x33FF, "Enclosed CJK and CJK Compatibility"},
    Block{0x3400, 0x9FFF, "CJK Unified Ideographs"},
    Block{0xAC00, 0xD7FF, "Hangul"},
    Block{0xE000, 0xF8FF, "Private Use Area"},
    Block{0xF900, 0xFAFF, "CJK Compatibility Ideographs"},
    Block{0xFB1D, 0xFB4F, "Hebrew"},
    Block{0xFB50, 0xFDFF, "Arabic"},
    Block{0xFE70, 0xFEFE, "Arabic"},
    Block{0xFF00, 0xFFEF, "Halfwidth and Fullwidth Forms"},
    Block{0xFFF0, 0xFFFF, "Specials"},
    Block{0x13000, 0x1342F, "Egyptian Hieroglyphs"},
    Block{0x1F000, 0x1FAFF, "Pictographs"},
    Block{0x20000, 0x3FFFF, "CJK Unified Ideographs"},
    Block{0xF0000, 0x10FFFF, "Private Use Area"},
};

} // namespace

std::string_view CharacterBlock(char32_t character)
{
    const auto at = std::lower_bound(kBlocks.begin(), kBlocks.end(), character,
                                     [](const Block& block, char32_t c) { return block.last < c; });
    return at != kBlocks.end() && at->first <= character ? at->name : "other characters";
}

} // namespace sm::render
