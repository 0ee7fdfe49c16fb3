// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that an OLE object was last shown by, as steps on a plane of its own.
#pragma once

#include "render/Canvas.h"
#include "render/Matrix.h"
#include "render/Picture.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

/// Text in one font, its base line's start (middle, end) at `at`.
struct OleText {
    std::string text; ///< UTF-8
    std::string family;
    bool bold = false, italic = false, underline = false, struckOut = false;
    Vec2 at;
    double em = 1, width = 0; ///< width: that it shall have; 0: as the font gives
    double degrees = 0;
    int column = 0; ///< 0 begins at `at`, 1 has its middle there, 2 ends there
};

/// One thing that the picture draws: a text, a picture, or else a path that is filled or stroked.
struct OleStep {
    Path path;
    std::uint32_t color = 0; ///< 0xRRGGBB
    bool filled = false;
    FillRule rule = FillRule::EvenOdd;
    double width = 0;
    std::optional<OleText> text;
    std::shared_ptr<const Picture> picture;
    Matrix2 place; ///< of the picture's unit square
    Box2 clip;     ///< what of it shows
};

/// On a plane of `width` by `height`, x to the right and y up from the lower-left corner; lengths in the same units.
struct OlePicture {
    double width = 0, height = 0;
    std::vector<OleStep> steps;
    std::size_t leftOut = 0; ///< records that mean something and aren't known
    [[nodiscard]] bool Empty() const { return steps.empty(); }
};

/// The presentation that the object of a compound file holds: a metafile or a bitmap. Empty when there is none, or
/// none of a known kind.
OlePicture ReadOlePicture(std::string_view compoundFile);

/// A Windows metafile (16 bits), with or without the header of placeable ones, or an enhanced one (32 bits).
OlePicture ReadMetafile(std::string_view bytes);

/// A bitmap as bitmap files hold it behind their first header; null when it can't be read.
std::shared_ptr<const Picture> ReadDib(std::string_view bytes);

} // namespace sm::render
