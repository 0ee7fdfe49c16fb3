// SPDX-License-Identifier: GPL-3.0-or-later
// What a text stamp may be made of, as the dialog offers it and the command line takes it.
#pragma once

#include "settings/SettingTable.h"

#include <array>
#include <string>

namespace sm {

/// Entry 0 stands for "no stamp", the others are the settings "Stamp1" to "Stamp15".
using StampTexts = std::array<std::string, kStampTextCount + 1>;
inline constexpr const char* kNoStampText = "(NONE)";

/// The layout's name in the record of a stamp that every layout carries.
inline constexpr const char* kAllLayouts = "All Layouts";

/// The fonts that every PDF reader has.
inline constexpr std::array<const char*, 14> kStampFonts = {
    "Courier",     "Courier-Bold",   "Courier-Oblique",   "Courier-BoldOblique",
    "Helvetica",   "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique",
    "Times-Roman", "Times-Bold",     "Times-Italic",      "Times-BoldItalic",
    "Symbol",      "ZapfDingbats"};

/// Points, as the dialog offers them; the record may hold others.
inline constexpr std::array<const char*, 14> kStampSizes = {"8",  "10", "12", "14", "16", "18", "20",
                                                            "24", "28", "32", "36", "40", "44", "48"};

/// Which part of the text stands at the stamp's point.
inline constexpr NamedNumber kStampJustifications[] = {{0, "Left"}, {1, "Center"}, {2, "Right"}};

} // namespace sm
