// SPDX-License-Identifier: GPL-3.0-or-later
// FreeType outlines as paths and as quadratic contours.
#pragma once

#include "render/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace sm::render {

/// Appends the outline, scaled; curves become cubic.
void ReadOutline(const FT_Outline& outline, double scale, Path& out);
/// Appends the outline as TrueType keeps it; cubic curves are split into quadratic ones within half a font unit or so.
void ReadContours(const FT_Outline& outline, GlyphContours& out);

} // namespace sm::render
