// SPDX-License-Identifier: GPL-3.0-or-later
// The scale that annotations of the model tab are made for.
#pragma once

#include "drawing/Properties.h"

#include <optional>

namespace sm::drawing {

class Drawing;

/// The annotation scale of the model tab (CANNOSCALE: a SCALE object); 0 when the file names none, or holds no
/// annotative entity that is kept for several scales.
Handle ModelAnnotationScale(const Drawing& drawing);
/// Whether annotative entities show at scales that they don't have as well (ANNOALLVISIBLE); nothing where the file
/// doesn't say.
std::optional<bool> ShowsAllAnnotations(const Drawing& drawing);

/// Drawing units for one unit of paper at the model tab's annotation scale ("1:50" gives 50), where line types follow
/// it (MSLTSCALE 1, as in new drawings); 1 where they don't, or the file names no scale.
double ModelLinetypeUnit(const Drawing& drawing);

} // namespace sm::drawing
