// SPDX-License-Identifier: GPL-3.0-or-later
// How the glyphs of a stroked font are made ready for a text, so that the pen keeps its width however the text is
// squeezed and sheared.
#pragma once

#include "render/Canvas.h"

#include <optional>

namespace sm::plotter {

/// Glyphs of a stroked font, already squeezed and sheared: their em is mapped by [width 0 shear 1 0 0], and a pen of
/// `pen` em draws them. Numbers are rounded such that prints differ by less than a dot.
struct StrokeCut {
    double width = 1, shear = 0, pen = 0;
    friend auto operator<=>(const StrokeCut&, const StrokeCut&) = default;
};

/// A text as its cut and the rest: a similarity that turns, scales, moves and perhaps mirrors.
struct CutText {
    StrokeCut cut;
    double width = 1, shear = 0; ///< not rounded, for the places of the glyphs
    render::Matrix2 toPaper;     ///< from the cut's em to millimetres
};

/// `penWidth` in millimetres, above 0; no pen of at least kThinnestPen becomes thinner than that. Nothing where the
/// text is flat, too small to be read or beyond all measure.
std::optional<CutText> CutOf(const render::Matrix2& toPaper, double penWidth);

} // namespace sm::plotter
