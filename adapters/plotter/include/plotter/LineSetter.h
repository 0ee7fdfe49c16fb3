// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of text outside of any drawing, set as a drawing's are: any script, with the fonts that the machine has.
#pragma once

#include "render/TextLayout.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace sm::plotter {

/// Units of a line's body in the em of its font.
inline constexpr double kLineEm = 10000;

/// A line as text blocks of a page's body (see PsWriter): from (0, 0) along x, `kLineEm` units an em.
struct BodyLine {
    std::string body;
    double width = 0; ///< em
};

/// Sets lines that share their fonts. Not for use by several threads at once.
class LineSetter {
public:
    /// `remark` hears of each character that no font has, and is drawn as a box; it may be empty.
    static std::unique_ptr<LineSetter> Create(const std::string& shareFolder,
                                              std::function<void(const std::string& remark)> remark);
    virtual ~LineSetter() = default;
    /// `color`: 0xRRGGBB. Throws std::runtime_error where a library that the text's script needs isn't installed.
    virtual BodyLine Set(std::string_view line, const render::LineLook& look, std::uint32_t color) = 0;
    /// The font resources that the bodies set so far name, as a page's set-up has them.
    [[nodiscard]] virtual std::string Fonts() const = 0;
};

} // namespace sm::plotter
