// SPDX-License-Identifier: GPL-3.0-or-later
// Whoever can set text in any script, for stamps that the standard fonts of PDF can't show.
#pragma once

#include <cstdint>
#include <string>

namespace sm::publisher {

/// What a stamp's text is set in.
struct StampLook {
    std::string family; ///< "Arial", "Times New Roman" or "Courier New"
    bool bold = false, italic = false;
    std::uint32_t color = 0; ///< 0xRRGGBB
};

/// A line of text that is set. Its body is page content of the plotter's own kind, text blocks alone.
struct StampLine {
    std::string body; ///< from (0, 0) along x, `kStampEm` units an em
    double width = 0; ///< em
};
inline constexpr double kStampEm = 10000;

/// The texts of one document, which share their fonts.
class IStampTexts {
public:
    virtual ~IStampTexts() = default;
    /// One line, UTF-8 without controls. May throw: the text is shown by the standard font then, as far as it goes.
    virtual StampLine Set(const std::string& text, const StampLook& look) = 0;
    /// The fonts that the bodies set so far name, as a page of the plotter's defines them.
    [[nodiscard]] virtual std::string Fonts() = 0;
};

} // namespace sm::publisher
