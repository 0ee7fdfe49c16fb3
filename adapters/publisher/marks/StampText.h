// SPDX-License-Identifier: GPL-3.0-or-later
// The fonts of text stamps and the text as those fonts can show it.
#pragma once

#include "marks/StandardFontWidths.h"

#include <string>
#include <string_view>

namespace sm::publisher {

struct StampFont {
    std::string_view name; ///< the PDF's name of the font, "Helvetica-BoldOblique"
    StandardFace face = StandardFace::Helvetica;
    bool latin = true; ///< WinAnsiEncoding; false for Symbol and ZapfDingbats, which have encodings of their own
    bool known = true; ///< false when Helvetica stands in for a font that isn't one of the 14
};

/// One of the 14 standard fonts by its name, letter case, blanks, commas and hyphens aside; "Arial", "Times New
/// Roman" and "Courier New" mean the standard font of like look.
StampFont FindStampFont(std::string_view name);

struct StampText {
    std::string codes;    ///< one byte per character of the font
    bool complete = true; ///< false when some characters are shown by stand-ins
    double width = 0;     ///< advance at font size 1
};

/// UTF-8 text in the font's own codes. A character that the font lacks is shown as its nearest spelling ("<=" for
/// U+2264) or, failing that, as "\U+XXXX", the way drawings spell it. Line ends and other controls become blanks.
StampText EncodeStampText(std::string_view text, const StampFont& font);

} // namespace sm::publisher
