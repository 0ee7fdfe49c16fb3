// The scale that annotations of the model tab are made for.
#pragma once

namespace sm::drawing {

class Drawing;

/// Drawing units for one unit of paper at the model tab's annotation scale ("1:50" gives 50), where line types follow
/// it (MSLTSCALE 1, as in new drawings); 1 where they don't, or the file names no scale.
double ModelLinetypeUnit(const Drawing& drawing);

} // namespace sm::drawing
